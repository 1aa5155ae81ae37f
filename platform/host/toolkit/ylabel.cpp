#include <ylabel.h>

struct YLabel::Private
{
    bool autoResize = false;
};

YLabel::YLabel(QWidget* parent, const char* name, YWidgetFlags /*flags*/, int /*widgetClassId*/)
    : QLabel(parent), d(new Private)
{
    if (name)
        setObjectName(QString::fromUtf8(name));
    // A text from outside, such as a network's name, is a text and no markup.
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
}

YLabel::~YLabel()
{
    delete d;
}

void YLabel::setAutoResize(bool enable)
{
    d->autoResize = enable;
    if (enable)
        adjustSize();
}

void YLabel::setText(const QString& text)
{
    QLabel::setText(text);
    if (d->autoResize)
        adjustSize();
}
