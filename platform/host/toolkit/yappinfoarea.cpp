#include <yappinfoarea.h>

#include <map>

#include <QPainter>
#include <QStringList>

#include "toolkit/look/ytheme.h"

struct YAppInfoArea::Private
{
    std::map<int, QStringList> texts; // by area

    QString all() const
    {
        QStringList parts;
        for (const auto& [area, words] : texts)
            parts << words.join(' ');
        return parts.join(QStringLiteral("  "));
    }
};

YAppInfoArea::YAppInfoArea(QWidget* parent, const char* /*layout*/, const char* name,
                           int /*widgetClassId*/)
    : QWidget(parent), d(new Private)
{
    if (name)
        setObjectName(QString::fromUtf8(name));
}

YAppInfoArea::~YAppInfoArea() = default;

void YAppInfoArea::appendText(int area, const QString& text, const QString& second)
{
    for (const QString& word : {text, second})
        if (!word.isEmpty())
            d->texts[area] << word;
    setAccessibleName(d->all());
    updateGeometry();
    update();
}

QString YAppInfoArea::text(int area) const
{
    const auto found = d->texts.find(area);
    return found == d->texts.end() ? QString() : found->second.join(' ');
}

void YAppInfoArea::clear(int area)
{
    d->texts.erase(area);
    appendText(area, QString(), QString());
}

QSize YAppInfoArea::sizeHint() const
{
    const QString all = d->all();
    const int width = QFontMetrics(YTheme::current().smallFont()).horizontalAdvance(all);
    return QSize(all.isEmpty() ? 0 : width + YTheme::current().margin,
                 YTheme::current().titleHeight);
}

void YAppInfoArea::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setFont(YTheme::current().smallFont());
    painter.setPen(YTheme::current().mutedText);
    painter.drawText(rect().adjusted(0, 0, -YTheme::current().margin, 0),
                     Qt::AlignVCenter | Qt::AlignRight | Qt::TextSingleLine, d->all());
}
