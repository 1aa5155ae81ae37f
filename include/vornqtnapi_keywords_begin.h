// Lends Qt's words "signals" and "slots" to the class that follows, in a program that is built
// without them (QT_NO_KEYWORDS). Stands behind the other headers of its file, and
// vornqtnapi_keywords_end.h at the end of it takes the words back. No guard: each file has its own
// pair. Qt 2 always has the words, and its moc reads no others.
#ifndef signals
#define signals Q_SIGNALS
#define slots Q_SLOTS
#define VORNQTNAPI_KEYWORDS_LENT
#endif
