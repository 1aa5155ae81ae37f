#include "network/store/store_world.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

const uid_t nobody = 65534;

} // namespace

NetworkProfile uniformRecord(int byte)
{
    NetworkProfile record;
    memset(&record, byte, sizeof record);
    return record;
}

int byteOf(const NetworkProfile& record)
{
    const auto* bytes = reinterpret_cast<const unsigned char*>(&record);
    bool isUniform = std::all_of(bytes, bytes + sizeof record,
                                 [&](unsigned char byte) { return byte == bytes[0]; });
    return isUniform ? bytes[0] : -1;
}

namespace {

std::string placeFor(StoreWorld::On on)
{
    if (on == StoreWorld::On::Memory && access("/dev/shm", W_OK) == 0)
        return "/dev/shm";
    return fs::temp_directory_path();
}

} // namespace

StoreWorld::StoreWorld(On on) : m_folder(placeFor(on)), m_umask(umask(077))
{
    setenv("VORN_ROOT", root().c_str(), 1);
}

StoreWorld::~StoreWorld()
{
    unsetenv("VORN_ROOT");
    umask(m_umask);
    std::error_code ignored;
    for (auto& entry : fs::recursive_directory_iterator(root(), ignored))
        if (entry.is_directory(ignored) && !entry.is_symlink(ignored))
            fs::permissions(entry.path(), fs::perms::owner_all, ignored);
}

void StoreWorld::clear()
{
    for (auto& entry : fs::directory_iterator(root()))
        fs::remove_all(entry.path());
}

void StoreWorld::reset(const Profiles& content)
{
    clear();
    for (auto& [name, byte] : content) {
        NetworkProfile record = uniformRecord(byte);
        ASSERT_EQ(NAPI_CreateProfile(name.c_str(), &record, 0, 0), NAPI_OK) << name;
    }
}

void StoreWorld::putRaw(const std::string& name, const std::string& bytes)
{
    fs::create_directories(profiles() + "/" + name);
    std::ofstream(record(name), std::ios::binary) << bytes;
}

std::vector<std::string> listedNames()
{
    unsigned int count = 0;
    EXPECT_EQ(NAPI_ListAllProfile(nullptr, &count), NAPI_OK);
    // Some more slots, should another process have added profiles since.
    count += 16;
    std::vector<char> slots(std::size_t(count) * NAPI_PROFILE_NAME_SLOT);
    EXPECT_EQ(NAPI_ListAllProfile(slots.data(), &count), NAPI_OK);
    std::vector<std::string> names;
    for (unsigned int i = 0; i < count; ++i)
        names.push_back(&slots[std::size_t(i) * NAPI_PROFILE_NAME_SLOT]);
    return names;
}

Profiles storedProfiles()
{
    Profiles content;
    for (const std::string& name : listedNames()) {
        NetworkProfile record;
        int result = NAPI_ReadProfile(name.c_str(), &record, 0, 0);
        content[name] = result == NAPI_OK ? byteOf(record) : result;
    }
    return content;
}

std::vector<std::string> entriesOf(const std::string& folder)
{
    std::vector<std::string> names;
    std::error_code ignored;
    for (auto& entry : fs::directory_iterator(folder, ignored))
        names.push_back(entry.path().filename());
    std::sort(names.begin(), names.end());
    return names;
}

std::string contentOf(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

int createNew()
{
    NetworkProfile record = uniformRecord(5);
    return NAPI_CreateProfile("New", &record, 0, 0);
}

int modifyA()
{
    NetworkProfile record = uniformRecord(5);
    return NAPI_ModifyProfile("A", &record, 0, 0);
}

int inChild(const std::function<int()>& body)
{
    fflush(nullptr);
    pid_t child = fork();
    if (child == 0)
        _exit(body());
    int status = 0;
    while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

int asOrdinaryUser(const StoreWorld& world, const std::function<int()>& body)
{
    if (geteuid() != 0)
        return inChild(body);
    EXPECT_EQ(chown(world.root().c_str(), nobody, nobody), 0);
    for (auto& entry : fs::recursive_directory_iterator(world.root()))
        EXPECT_EQ(lchown(entry.path().c_str(), nobody, nobody), 0);
    return inChild([&] {
        if (setresgid(nobody, nobody, nobody) != 0 || setresuid(nobody, nobody, nobody) != 0)
            return 126;
        return body();
    });
}
