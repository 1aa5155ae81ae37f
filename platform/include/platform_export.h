// Marks what a platform library gives to its users. On the phone the platform's own headers stand
// in the place of this folder, so nothing outside the folder may rely on the macro.
#ifndef PLATFORM_EXPORT_H
#define PLATFORM_EXPORT_H

#define VORN_PLATFORM_API __attribute__((visibility("default")))

#endif
