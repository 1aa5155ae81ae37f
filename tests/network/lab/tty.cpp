// Preloaded beside umockdev, which knows no terminals: hands every question about a terminal to the
// kernel.
#include <cstdarg>

#include <dlfcn.h>
#include <sys/ioctl.h>
#include <sys/syscall.h>
#include <unistd.h>

extern "C" __attribute__((visibility("default"))) int ioctl(int descriptor, unsigned long request,
                                                            ...) noexcept
{
    va_list rest;
    va_start(rest, request);
    void* argument = va_arg(rest, void*);
    va_end(rest);
    // It would lock the modem's end out of its own pseudo terminal.
    if (request == TIOCEXCL)
        return 0;
    if ((request >> 8 & 0xFF) == 'T')
        return static_cast<int>(syscall(SYS_ioctl, descriptor, request, argument));
    using Ioctl = int (*)(int, unsigned long, void*);
    static const auto next = reinterpret_cast<Ioctl>(dlsym(RTLD_NEXT, "ioctl"));
    return next(descriptor, request, argument);
}
