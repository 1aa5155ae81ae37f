#include <ycombobox.h>

#include <algorithm>

#include <QPainter>
#include <QPointer>
#include <QStringList>
#include <QStyle>

#include <yformcontainer.h>
#include <ysingleselectdlg.h>
#include <yskinservice.h>

#include "toolkit/accessible/ytell.h"
#include "toolkit/look/yicon.h"
#include "toolkit/look/yrowlook.h"
#include "toolkit/look/ytheme.h"
#include "toolkit/look/ywrap.h"

namespace {

// Above and below lines of small letters.
int linePadding()
{
    return YTheme::current().focus + YTheme::current().line;
}

// The room for the arrow and the gap before it.
int arrowRoom()
{
    return YTheme::current().arrow + YTheme::current().margin / 2;
}

void drawValue(QPainter& painter, const QString& text, const QRect& place, bool one)
{
    painter.setFont(one ? YTheme::current().bodyFont() : YTheme::current().smallFont());
    YWrap::draw(painter, place, Qt::AlignVCenter | Qt::AlignLeft, text);
}

bool isFormRow(const QWidget& widget)
{
    for (const QWidget* above = widget.parentWidget(); above; above = above->parentWidget())
        if (qobject_cast<const YFormContainer*>(above))
            return true;
    return false;
}

} // namespace

struct YComboBox::Private
{
    YRowLook look;
    QStringList items;
    QString title;
    QString dlgTitle;
    QString told; // what screen readers know of the current item
    int dlgType = MarkedDlg;
    int current = -1;
    bool titled = true;
    bool autoResize = false;
    int generation = -1; // of the theme that it was measured with
    QString measuredText;
    int measuredWidth = 0; // in one line of the usual letters
    YWrapHeight measured;

    // The room for the current item and, beside it, for the arrow.
    QRect valueR(const QSize& row) const { return look.textR(row).adjusted(0, 0, -arrowRoom(), 0); }

    bool fitsOneLine(const QString& text, int width)
    {
        if (text != measuredText || generation != YTheme::generation()) {
            generation = YTheme::generation();
            measuredText = text;
            measuredWidth = QFontMetrics(YTheme::current().bodyFont()).horizontalAdvance(text);
        }
        // The sum of the letters' widths is rounded.
        return measuredWidth < width;
    }

    // Lines of small letters take the place of one that is too long.
    void fitBox(int width)
    {
        const QString text = items.value(current);
        const int room = valueR(QSize(width, 0)).width();
        int height = YRowLook::boxHeight();
        if (!fitsOneLine(text, room))
            height = std::max(height, measured.at(YTheme::current().smallFont(), text, room) +
                                          2 * linePadding());
        look.setBoxHeight(height);
    }
};

YComboBox::YComboBox(QWidget* parent, const char* name, bool titled)
    : YButton(parent, name, YSkinService::DefaultClass), d(new Private)
{
    d->titled = titled;
    connect(this, SIGNAL(clicked()), this, SLOT(choose()));
}

YComboBox::~YComboBox() = default;

void YComboBox::setTitle(const QString& title)
{
    d->title = title;
    if (d->titled)
        d->look.setLabel(title);
    setAccessibleName(title);
    changed();
}

QString YComboBox::title() const
{
    return d->title;
}

void YComboBox::setDlgTitle(const QString& title, int type)
{
    d->dlgTitle = title;
    d->dlgType = type;
}

QString YComboBox::dlgTitle() const
{
    return d->dlgTitle.isNull() ? d->title : d->dlgTitle;
}

int YComboBox::dlgType() const
{
    return d->dlgType;
}

void YComboBox::setAutoResize(bool enable)
{
    d->autoResize = enable;
    changed();
}

bool YComboBox::autoResize() const
{
    return d->autoResize;
}

void YComboBox::insertItem(const QString& text, int index)
{
    const int end = count();
    const int place = index < 0 || index > end ? end : index;
    d->items.insert(place, text);
    if (d->current < 0)
        d->current = 0;
    else if (place <= d->current)
        ++d->current;
    changed();
}

void YComboBox::removeItem(int index)
{
    if (index < 0 || index >= count())
        return;
    d->items.removeAt(index);
    if (index < d->current || d->current == count())
        --d->current;
    changed();
}

void YComboBox::clear()
{
    d->items.clear();
    d->current = -1;
    changed();
}

int YComboBox::count() const
{
    return static_cast<int>(d->items.size());
}

QString YComboBox::text(int index) const
{
    return d->items.value(index);
}

QString YComboBox::currentText() const
{
    return text(d->current);
}

int YComboBox::currentItem() const
{
    return d->current;
}

void YComboBox::setCurrentItem(int index)
{
    if (index < 0 || index >= count() || index == d->current)
        return;
    d->current = index;
    changed();
}

QSize YComboBox::sizeHint() const
{
    int widest = 0;
    for (const QString& item : d->autoResize ? QStringList(currentText()) : d->items)
        widest = std::max(widest, fontMetrics().horizontalAdvance(item));
    const int width = widest + arrowRoom() + this->width() - d->look.textR(size()).width() +
                      YTheme::current().boxInset;
    return QSize(width, heightForWidth(width));
}

int YComboBox::heightForWidth(int width) const
{
    d->fitBox(width);
    return d->look.heightForWidth(width);
}

void YComboBox::paintEvent(QPaintEvent*)
{
    const YTheme& theme = YTheme::current();
    const YRowLook::State state{isYEnabled(), hasFocus(), isDown()};
    d->fitBox(width());
    QPainter painter(this);
    d->look.drawLabel(painter, size(), state);
    d->look.drawBox(painter, size(), state);
    const QRect inner = d->look.textR(size());
    const QRect arrow(inner.right() + 1 - theme.arrow, inner.top(), theme.arrow, inner.height());
    YIcon::draw(painter, QStringLiteral("open"),
                QStyle::visualRect(layoutDirection(), inner, arrow),
                isYEnabled() ? theme.mutedText : theme.disabledText);
    const QRect place = QStyle::visualRect(layoutDirection(), inner, d->valueR(size()));
    painter.setPen(isYEnabled() ? theme.text : theme.disabledText);
    drawValue(painter, currentText(), place, d->fitsOneLine(currentText(), place.width()));
}

// The box and its dialog may both be deleted while the dialog is open.
void YComboBox::choose()
{
    if (d->items.isEmpty())
        return;
    QPointer<YSingleSelectDlg> dialog =
        new YSingleSelectDlg(dlgTitle(), QString(), this, nullptr, true, 0, 0);
    YListBox* list = dialog->getListBox();
    list->setItemType(d->dlgType == PlainDlg ? QStringLiteral("%M") : QStringLiteral("%R%M"));
    for (const QString& text : d->items) {
        auto* item = new YListBoxItem(list, QString());
        item->appendSubItem(1, text, false, nullptr);
        list->insertItem(item, -1, false);
    }
    list->checkItem(d->current, true);
    const bool accepted = dialog->exec() == YPopup::Accepted;
    if (!dialog)
        return;
    const int index = list->currentItem();
    delete dialog;
    if (!accepted || index < 0 || index >= count())
        return;
    setCurrentItem(index);
    emit activated(index);
}

void YComboBox::changed()
{
    if (currentText() != d->told) {
        d->told = currentText();
        YTell::value(this, d->told);
    }
    if (d->autoResize && !isFormRow(*this))
        resize(sizeHint());
    updateGeometry();
    update();
}
