// Finds the text of a resource id.
#ifndef YTRANSLATOR_H
#define YTRANSLATOR_H

#include <QTranslator>

// The toolkit's texts are asked for by a resource id (TXT_RID_..., FMT_RID_...) with a default text
// in the place of Qt's disambiguation. Everything that is no resource id is left to other
// translators.
class YTranslator : public QTranslator
{
    Q_OBJECT

public:
    using QTranslator::QTranslator;

    bool isEmpty() const override { return false; }
    QString translate(const char* context, const char* id, const char* defaultText,
                      int n) const override;
};

#endif
