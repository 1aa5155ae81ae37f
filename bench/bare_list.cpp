// The least that listing profiles can cost: opens, reads and closes FOLDER/Profile0/profile to
// FOLDER/Profile(COUNT-1)/profile. Usage: bare_list FOLDER COUNT
#include <cstdio>
#include <cstdlib>

#include <fcntl.h>
#include <unistd.h>

int main(int argc, char** argv)
{
    long bytes = 0;
    const int count = argc == 3 ? std::atoi(argv[2]) : 0;
    for (int i = 0; i < count; ++i) {
        char path[4096], record[1168];
        std::snprintf(path, sizeof path, "%s/Profile%d/profile", argv[1], i);
        const int file = open(path, O_RDONLY);
        const ssize_t length = file < 0 ? -1 : read(file, record, sizeof record);
        if (length < 0)
            return 1;
        bytes += length;
        close(file);
    }
    std::printf("%ld\n", bytes);
    return 0;
}
