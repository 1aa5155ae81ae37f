// The version of the library that a program is compiled for. It says what the headers declare; the
// library that is loaded later has the same first number, which is in its name.
#ifndef VORNQTNAPI_VERSION_H
#define VORNQTNAPI_VERSION_H

// The version as a text.
#define VORNQTNAPI_VERSION_STR "1.0.0"

// A version as a number, to be compared with VORNQTNAPI_VERSION; each part is 0..255.
//
//     #if VORNQTNAPI_VERSION >= VORNQTNAPI_VERSION_CHECK(1, 0, 0)
//     offerWifi();
//     #endif
#define VORNQTNAPI_VERSION_CHECK(major, minor, patch) ((major) << 16 | (minor) << 8 | (patch))
// The version as a number.
#define VORNQTNAPI_VERSION VORNQTNAPI_VERSION_CHECK(1, 0, 0)

#endif
