// The device-management settings tree: settings by name, which an operator can provision.
//
//     if (DmtTreeFactory::Initialize().GetCode() != DMT_OK)
//         return;
//     DmtTreeHandle tree;
//     DmtNodeHandle node;
//     DmtData data;
//     int value = 0;
//     if (DmtTreeFactory::GetTree(DmtPrincipal("localhost"), tree).GetCode() == DMT_OK &&
//         tree->GetNode("DefConnPrefer", node).GetCode() == DMT_OK &&
//         node->GetValue(data).GetCode() == DMT_OK && data.GetInt(value).GetCode() == DMT_OK)
//         use(value);
//     node.Release();
//     tree.Release();
//     DmtTreeFactory::Uninitialize();
//
// Nothing is cached: each GetTree reads the settings afresh, so that it sees what another process
// has changed; what a tree, a node or a value has told once does not change any more. The calls of
// DmtTreeFactory may come from any thread and block while the file is read; an object of the other
// classes belongs to one thread at a time. Texts are NUL-terminated UTF-8. Nothing throws, except
// std::bad_alloc when memory has run out.
#ifndef DMT_H
#define DMT_H

#include "platform_export.h"

// What a call came to: DmtStatus::GetCode().
enum DmtCode {
    DMT_OK = 0,
    // The factory has not been initialised, or has been uninitialised again.
    DMT_NOT_INITIALIZED = 1,
    // There is no place for the settings. On the host: VORN_ROOT is no absolute path or no folder.
    DMT_NO_STORAGE = 2,
    // The settings are there but cannot be read. On the host: etc/settings.json is not JSON, no
    // object, or not readable; it is also said once on standard error, with file and line.
    DMT_DAMAGED = 3,
    // This principal has no access to the tree.
    DMT_NOT_PERMITTED = 4,
    // There is no node of this name, or the name is null.
    DMT_NOT_FOUND = 5,
    // The node has no value that the tree knows: its value is none of the types below, or an
    // integer beyond 32 bits.
    DMT_NO_VALUE = 6,
    // The value is of another type than the one asked for.
    DMT_WRONG_TYPE = 7
};

// The type of a value: DmtData::GetType().
enum DmtType {
    DMT_TYPE_NONE = 0, // nothing has been read into it
    DMT_TYPE_TEXT = 1,
    DMT_TYPE_INTEGER = 2, // 32 bits, signed
    DMT_TYPE_BOOL = 3
};

// The result of a call: a code, 0 for success, and a message for people.
class VORN_PLATFORM_API DmtStatus
{
public:
    // `message` is copied; null stands for "".
    explicit DmtStatus(int code = DMT_OK, const char* message = "");
    DmtStatus(const DmtStatus& other);
    DmtStatus& operator=(const DmtStatus& other);
    ~DmtStatus();

    // A DmtCode.
    int GetCode() const;

    // Never null; "" when there is nothing to say. Valid until the message is set or the status
    // goes.
    const char* GetMessage() const;

    // Puts a copy of `message` in the place of the message; null stands for "".
    void SetMessage(const char* message);

private:
    struct Private;
    Private* d;
};

// On whose behalf the tree is read. "localhost" is the local, on-device principal, which may read
// every node; no other has access.
class VORN_PLATFORM_API DmtPrincipal
{
public:
    // The name is copied; null stands for "".
    explicit DmtPrincipal(const char* name = "");
    DmtPrincipal(const DmtPrincipal& other);
    DmtPrincipal& operator=(const DmtPrincipal& other);
    ~DmtPrincipal();

    // The name is copied; null stands for "".
    void SetName(const char* name);
    const char* GetName() const; // never null

private:
    struct Private;
    Private* d;
};

// A value of a node. Each getter changes its argument only with DMT_OK, and gives DMT_WRONG_TYPE
// when the value is of another type.
class VORN_PLATFORM_API DmtData
{
public:
    DmtData(); // of type DMT_TYPE_NONE
    // A copy has a text of its own.
    DmtData(const DmtData& other);
    DmtData& operator=(const DmtData& other);
    ~DmtData();

    int GetType() const; // a DmtType

    // A value of type DMT_TYPE_INTEGER.
    DmtStatus GetInt(int& value) const;

    // The text belongs to this value and is valid until it is assigned to or goes.
    DmtStatus GetString(const char*& text) const;

    // A value of type DMT_TYPE_BOOL.
    DmtStatus GetBool(bool& value) const;

    // Each replaces the value and its type.
    void SetInt(int value);
    void SetString(const char* text); // copied; null stands for ""
    void SetBool(bool value);

private:
    struct Private;
    Private* d;
};

class DmtNodeHandle;
class DmtTreeHandle;

// One setting. It lives as long as handles hold it, also when the tree is gone.
class VORN_PLATFORM_API DmtNode
{
public:
    // Reads the value into `data`, which changes only with DMT_OK. Result: DMT_OK or DMT_NO_VALUE.
    DmtStatus GetValue(DmtData& data) const;

private:
    friend class DmtNodeHandle;
    friend class DmtTree;
    struct Private;
    explicit DmtNode(Private* state);
    DmtNode(const DmtNode&);
    DmtNode& operator=(const DmtNode&);
    ~DmtNode();

    Private* d;
};

// All settings as they were when the tree was obtained.
class VORN_PLATFORM_API DmtTree
{
public:
    // Finds a setting by its name, exactly as given, and has `node` hold it; what the handle held
    // before is released. Result: DMT_OK, or DMT_NOT_FOUND with an empty handle.
    DmtStatus GetNode(const char* name, DmtNodeHandle& node) const;

private:
    friend class DmtTreeHandle;
    friend class DmtTreeFactory;
    struct Private;
    explicit DmtTree(Private* state);
    DmtTree(const DmtTree&);
    DmtTree& operator=(const DmtTree&);
    ~DmtTree();

    Private* d;
};

// Holds a reference to a node. Copies share the node; with the last one the node goes.
class VORN_PLATFORM_API DmtNodeHandle
{
public:
    DmtNodeHandle(); // empty
    // A copy holds the same node.
    DmtNodeHandle(const DmtNodeHandle& other);
    DmtNodeHandle& operator=(const DmtNodeHandle& other);
    ~DmtNodeHandle(); // as Release()

    // Whether it holds nothing.
    bool IsEmpty() const;

    // The node; null when empty.
    DmtNode* operator->() const;

    // Gives the reference up; the handle is empty afterwards. Does nothing when it is empty.
    void Release();

private:
    friend class DmtTree;
    DmtNode* d;
};

// Holds a reference to a tree; as DmtNodeHandle.
class VORN_PLATFORM_API DmtTreeHandle
{
public:
    DmtTreeHandle(); // empty
    // A copy holds the same tree.
    DmtTreeHandle(const DmtTreeHandle& other);
    DmtTreeHandle& operator=(const DmtTreeHandle& other);
    ~DmtTreeHandle(); // as Release()

    // Whether it holds nothing.
    bool IsEmpty() const;

    // The tree; null when empty.
    DmtTree* operator->() const;

    // Gives the reference up; the handle is empty afterwards. Does nothing when it is empty.
    void Release();

private:
    friend class DmtTreeFactory;
    DmtTree* d;
};

// Where trees come from.
class VORN_PLATFORM_API DmtTreeFactory
{
public:
    // Starts the settings library, or counts one user more. Result: DMT_OK, or DMT_NO_STORAGE,
    // after which there is nothing to uninitialise.
    static DmtStatus Initialize();

    // Takes back one successful Initialize(); one too many is ignored. Handles stay valid.
    static void Uninitialize();

    // Reads the settings and has `tree` hold them; what the handle held before is released. Result:
    // DMT_OK, or DMT_NOT_INITIALIZED, DMT_NOT_PERMITTED, DMT_NO_STORAGE or DMT_DAMAGED with an
    // empty handle. Where no setting was ever stored the tree is empty, which is DMT_OK.
    static DmtStatus GetTree(const DmtPrincipal& principal, DmtTreeHandle& tree);

private:
    DmtTreeFactory();
};

#endif
