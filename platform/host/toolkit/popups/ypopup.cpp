#include <ypopup.h>

#include <algorithm>

#include <QCloseEvent>
#include <QEventLoop>
#include <QKeyEvent>
#include <QPainter>
#include <QPainterPath>
#include <QPointer>
#include <QStyle>

#include <yglobal.h>
#include <ylabel.h>
#include <ysoftkey.h>

#include "toolkit/accessible/ytell.h"
#include "toolkit/look/ybusy.h"
#include "toolkit/look/yslide.h"
#include "toolkit/look/ytextlabel.h"
#include "toolkit/look/ytheme.h"
#include "toolkit/look/ytitle.h"
#include "toolkit/yscreen.h"

namespace {

YTextLabel* makeLine(QWidget* parent, const QFont& font)
{
    auto* line = new YTextLabel(parent);
    line->setFont(font);
    line->hide();
    return line;
}

// The corners at the top are round; at the bottom the popup ends with the screen.
QPainterPath outline(const QRect& rect)
{
    QPainterPath path;
    const int radius = YTheme::current().popupRadius;
    path.addRoundedRect(QRectF(rect).adjusted(0, 0, 0, radius), radius, radius);
    return path;
}

// Screen readers are told of a popup by what it is to them.
void tellOf(YPopup* popup, bool shown)
{
    if (!QAccessible::isActive())
        return;
    const QAccessible::Role role = QAccessible::queryAccessibleInterface(popup)->role();
    if (role == QAccessible::PopupMenu)
        YTell::event(popup, shown ? QAccessible::PopupMenuStart : QAccessible::PopupMenuEnd);
    else if (role != QAccessible::AlertMessage)
        YTell::event(popup, shown ? QAccessible::DialogStart : QAccessible::DialogEnd);
    else if (shown)
        YTell::event(popup, QAccessible::Alert);
}

// Above and below title and instruction.
int linePadding()
{
    return YTheme::current().headerLine;
}

// Sets the line's place below `top` and returns its lower edge.
int placeLine(YTextLabel* line, int top, int width)
{
    if (line->isHidden())
        return top;
    const int inner = width - 2 * YTheme::current().margin;
    const int height = line->heightForWidth(inner);
    line->setGeometry(YTheme::current().margin, top + linePadding(), inner, height);
    return top + height + 2 * linePadding();
}

// The place of a popup on a screen that has another size now: as far from each edge as before, but
// for the upper one.
QRect movedWith(const QWidget& screen, const QSize& before, const QRect& place)
{
    const QSize more = screen.size() - before;
    QRect moved = place.translated(0, more.height());
    moved.setWidth(std::max(0, place.width() + more.width()));
    moved.setTop(std::max(0, moved.top()));
    return moved;
}

// Where the activity ring goes: the icon's place when there is a text to stand beside.
QRect busyPlace(const QWidget& popup, const QRect& contents)
{
    const YTheme& theme = YTheme::current();
    for (const YLabel* label : popup.findChildren<YLabel*>(Qt::FindDirectChildrenOnly))
        if (!label->text().isEmpty())
            return QStyle::visualRect(popup.layoutDirection(), contents,
                                      QRect(theme.margin, contents.top() + theme.dialogIconTop,
                                            theme.dialogIcon, theme.dialogIcon));
    return contents;
}

// Programs place their labels as on a screen that is read from left to right.
void mirrorLabels(const QWidget& popup)
{
    constexpr char mark[] = "vorn_mirrored"; // where a label has been put
    if (popup.layoutDirection() != Qt::RightToLeft)
        return;
    for (YLabel* label : popup.findChildren<YLabel*>(Qt::FindDirectChildrenOnly)) {
        if (label->property(mark).toRect() == label->geometry())
            continue;
        label->setGeometry(QStyle::visualRect(Qt::RightToLeft, popup.rect(), label->geometry()));
        label->setProperty(mark, label->geometry());
    }
}

// A picture from the program takes the place of the ring.
bool hasPicture(const QWidget& popup)
{
    const auto labels = popup.findChildren<YLabel*>(Qt::FindDirectChildrenOnly);
    return std::any_of(labels.begin(), labels.end(), [](const YLabel* label) {
        return !label->pixmap(Qt::ReturnByValue).isNull();
    });
}

} // namespace

struct YPopup::Private
{
    YTextLabel* title = nullptr;
    YTextLabel* instruction = nullptr;
    YSoftKey* softKey = nullptr;
    YBusy* busy = nullptr;
    YSlide* slide = nullptr;
    QEventLoop* loop = nullptr;
    int result = Cancelled;
    int headerBottom = 0;
    bool modal = false;

    // Lays out title and instruction.
    int headerHeight(int width) const
    {
        const QFont letters = YTitle::font(title->text(), width - 2 * YTheme::current().margin);
        if (title->font() != letters)
            title->setFont(letters);
        if (instruction->font() != YTheme::current().bodyFont())
            instruction->setFont(YTheme::current().bodyFont());
        return placeLine(instruction, placeLine(title, 0, width), width);
    }
};

YPopup::YPopup(int /*type*/, QWidget* parent, const char* name, bool modal, int style,
               int /*reserved*/)
    : QWidget(YScreen::instance()), d(new Private)
{
    // The destructor takes back only what is whole; the screen must not keep a layer that is not.
    try {
        if (name)
            setObjectName(QString::fromUtf8(name));
        d->modal = modal;
        YScreen::instance()->addLayer(this, parent, YScreen::Kind::Popup, modal);
        d->title = makeLine(this, YTheme::current().titleFont());
        d->instruction = makeLine(this, YTheme::current().bodyFont());
        d->softKey = new YSoftKey("CST_2A", this, this);
        d->softKey->setClickedSlot(YSoftKey::Left, this, SLOT(accept()));
        d->softKey->setClickedSlot(YSoftKey::Right, this, SLOT(reject()));
        d->slide = new YSlide(this);
        if (style == ProgressStyle)
            d->busy = new YBusy(this);
        setGeometry(YGlobal::getDlgSmallR());
        connect(YScreen::instance(), &YScreen::resized, this, [this](const QSize& before) {
            setGeometry(movedWith(*YScreen::instance(), before, geometry()));
            if (isVisible())
                fit();
        });
    } catch (...) {
        YScreen::removeLayer(this);
        throw;
    }
}

YPopup::~YPopup()
{
    if (isVisible())
        tellOf(this, false);
    YScreen::removeLayer(this);
    if (d->loop)
        d->loop->exit();
}

int YPopup::exec()
{
    if (d->loop)
        return Cancelled;
    QEventLoop loop;
    QPointer<YPopup> self(this);
    d->loop = &loop;
    d->result = Cancelled;
    show();
    loop.exec();
    if (!self)
        return Cancelled;
    d->loop = nullptr;
    // The application may have quit with the popup still on the screen.
    hide();
    return self ? d->result : Cancelled;
}

bool YPopup::isModalPopup() const
{
    return d->modal;
}

void YPopup::setTitle(const QString& title)
{
    d->title->setText(title);
    d->title->setHidden(title.isEmpty());
    setAccessibleName(title);
    layoutParts();
}

QString YPopup::title() const
{
    return d->title->text();
}

void YPopup::setInstructText(const QString& text)
{
    d->instruction->setText(text);
    d->instruction->setHidden(text.isEmpty());
    setAccessibleDescription(text);
    layoutParts();
}

QString YPopup::instructText() const
{
    return d->instruction->text();
}

YSoftKey* YPopup::getSoftKey() const
{
    return d->softKey;
}

QRect YPopup::contentsR() const
{
    return rect().adjusted(0, d->headerBottom, 0, -YTheme::current().softKeyHeight);
}

void YPopup::accept()
{
    done(Accepted);
}

void YPopup::reject()
{
    done(Cancelled);
}

void YPopup::done(int result)
{
    d->result = result;
    hide();
}

int YPopup::contentsHint(int /*width*/, int /*most*/) const
{
    return -1;
}

void YPopup::layoutContents() {}

bool YPopup::event(QEvent* event)
{
    // A label with a new text or picture asks for it, and another theme.
    if (event->type() == QEvent::LayoutRequest) {
        if (isVisible())
            fit();
        else
            layoutParts();
        if (isVisible() && d->title->text().isEmpty())
            YTell::event(this, QAccessible::NameChanged);
    }
    return QWidget::event(event);
}

void YPopup::showEvent(QShowEvent* event)
{
    mirrorLabels(*this);
    fit();
    d->slide->begin();
    QWidget::showEvent(event);
    tellOf(this, true);
}

void YPopup::hideEvent(QHideEvent* event)
{
    QWidget::hideEvent(event);
    tellOf(this, false);
    if (d->loop)
        d->loop->exit();
}

void YPopup::closeEvent(QCloseEvent* event)
{
    event->accept();
    reject();
}

void YPopup::keyPressEvent(QKeyEvent* event)
{
    // No key reaches what lies below.
    event->accept();
}

void YPopup::mousePressEvent(QMouseEvent*) {}

void YPopup::paintEvent(QPaintEvent*)
{
    const YTheme& theme = YTheme::current();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(outline(rect()), theme.surface);
    if (d->title->isHidden())
        return;
    painter.fillRect(0, d->headerBottom - theme.line, width(), theme.line, theme.border);
}

void YPopup::resizeEvent(QResizeEvent*)
{
    layoutParts();
}

bool YPopup::focusNextPrevChild(bool next)
{
    YScreen::walkFocus(this, next);
    return true;
}

void YPopup::fit()
{
    const QRect largest = YGlobal::getDlgLargeR();
    const int header = d->headerHeight(largest.width());
    const int around = header + YTheme::current().softKeyHeight;
    const int contents = contentsHint(largest.width(), largest.height() - around);
    if (contents >= 0)
        setGeometry(largest.adjusted(0, largest.height() - around - contents, 0, 0));
    layoutParts();
}

void YPopup::layoutParts()
{
    d->softKey->setGeometry(0, height() - YTheme::current().softKeyHeight, width(),
                            YTheme::current().softKeyHeight);
    d->headerBottom = d->headerHeight(width());
    if (d->busy) {
        d->busy->move(busyPlace(*this, contentsR()).center() - d->busy->rect().center());
        d->busy->setHidden(hasPicture(*this));
    }
    layoutContents();
}
