// Texts for people, outside of classes that have a tr() of their own.
#ifndef SUPPORT_TRANSLATE_H
#define SUPPORT_TRANSLATE_H

#include <qstring.h>

namespace support {

// Looks up a text, with a comment that tells equal texts apart, in the context "QObject": with the
// platform's translator, the identifier of a resource and its English default. Gives `text` itself
// while there is no QApplication. Both are ASCII; null gives a null text.
QString translate(const char* text, const char* comment = nullptr);

} // namespace support

#endif
