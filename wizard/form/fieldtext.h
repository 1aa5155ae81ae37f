// Texts in the fields of a record: UTF-8, ended by a NUL unless they fill the field.
#ifndef WIZARD_FIELDTEXT_H
#define WIZARD_FIELDTEXT_H

#include <cstddef>

#include <qstring.h>

namespace wizard {

// The text up to the NUL, or the whole field where it has none.
QString textOfField(const char* field, std::size_t width);

// Puts a text into a field: as many of its bytes as fit, up to the first NUL, and NULs behind them.
void storeText(const QString& text, char* field, std::size_t width);

// The number of an IPv4 address field: 0 for an empty text. What is no address is logged and leaves
// `*address` as it was.
void storeAddress(const QString& text, unsigned int* address);

// Whether storeAddress() would take the text.
bool isAddressOrEmpty(const QString& text);

// The number of a port field, its lowest 16 bits; 0 for an empty text and for what is no number.
unsigned short portOf(const QString& text);

} // namespace wizard

#endif
