// A profile store of its own for one test, and what tests say about its content.
#ifndef TESTS_NETWORK_STORE_WORLD_H
#define TESTS_NETWORK_STORE_WORLD_H

#include <functional>
#include <map>
#include <string>
#include <sys/types.h>
#include <vector>

#include "common/temporary_folder.h"
#include "network/napi_host.h"

// What a store holds: each usable profile and the byte that its whole record consists of.
using Profiles = std::map<std::string, int>;

// A record of 1168 equal bytes: any mixture of two records shows.
NetworkProfile uniformRecord(int byte);

// The byte of a uniform record, or -1 when the record is a mixture.
int byteOf(const NetworkProfile& record);

// Stores "New" with bytes 5, or exchanges the record of "A" for one. Result: the network API's.
int createNew();
int modifyA();

class StoreWorld
{
public:
    // Where the root lies: on the disk that tests use, or in memory where there is such a place.
    enum class On { Disk, Memory };

    // Makes an empty root and sets VORN_ROOT. What a test makes in it by hand is its owner's alone,
    // as what the network API makes.
    explicit StoreWorld(On on = On::Disk);
    StoreWorld(const StoreWorld&) = delete;
    StoreWorld& operator=(const StoreWorld&) = delete;
    ~StoreWorld();

    const std::string& root() const { return m_folder.path(); }
    std::string profiles() const { return root() + "/vornlocal/download/appwrite/NetProfile"; }
    std::string record(const std::string& name) const
    {
        return profiles() + "/" + name + "/profile";
    }

    // Empties the root and stores these profiles through the network API.
    void reset(const Profiles& content = {});
    // Empties the root.
    void clear();
    // Makes NAME/profile with this text in it, without the network API.
    void putRaw(const std::string& name, const std::string& bytes);

private:
    TemporaryFolder m_folder;
    mode_t m_umask;
};

// All profiles that the network API lists, each read; -1 for a mixed record, the (negative) result
// for one that cannot be read.
Profiles storedProfiles();

// The names that NAPI_ListAllProfile gives, in its order.
std::vector<std::string> listedNames();

// Everything in the folder, hidden names too, sorted.
std::vector<std::string> entriesOf(const std::string& folder);

// The text of a whole file.
std::string contentOf(const std::string& path);

// Runs `body` in a child process that is an ordinary user (nobody when the test runs as root; the
// root folder is then given to that user), and gives what it returns.
int asOrdinaryUser(const StoreWorld& world, const std::function<int()>& body);

// Runs `body` in a child process and gives what it returns, or 128 + the signal that ended it.
int inChild(const std::function<int()>& body);

#endif
