// Marks what the library gives to applications; everything else stays inside it.
#ifndef VORNQTNAPI_EXPORT_H
#define VORNQTNAPI_EXPORT_H

#define VORNQTNAPI_EXPORT __attribute__((visibility("default")))

#endif
