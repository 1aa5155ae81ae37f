#include <ysoftkey.h>

#include <algorithm>
#include <array>
#include <map>

#include <QKeyEvent>
#include <QPainter>
#include <QPointer>
#include <QPushButton>
#include <QStyle>

#include <yoptionsmenu.h>
#include <ypopup.h>

#include "toolkit/look/yanswer.h"
#include "toolkit/look/ydress.h"
#include "toolkit/look/ytheme.h"

namespace {

constexpr int buttonCount = 2;

bool isButton(int button)
{
    return button >= 0 && button < buttonCount;
}

// The texts of keys that leave a page or popup without doing what it is for.
struct WayOut
{
    const char* id;
    const char* defaultText;
};

constexpr WayOut waysOut[] = {
    {"TXT_RID_SOFTKEY_CANCEL", "Cancel"},
    {"TXT_RID_SOFTKEY_BACK", "Back"},
    {"TXT_RID_SOFTKEY_CLOSE", "Close"},
    {"TXT_RID_SOFTKEY_NO", "No"},
};

bool saysWayOut(const QString& text)
{
    return std::any_of(std::begin(waysOut), std::end(waysOut), [&text](const WayOut& way) {
        return text == QLatin1String(way.defaultText) ||
               text == YSoftKey::tr(way.id, way.defaultText);
    });
}

using Texts = std::map<int, QString>; // by priority

// The first that fits, or a null text.
QString firstThatFits(const Texts& texts, const QFont& letters, int room)
{
    const QFontMetrics metrics(letters);
    const auto found = std::find_if(texts.begin(), texts.end(), [&](const auto& entry) {
        return metrics.horizontalAdvance(entry.second) <= room;
    });
    return found == texts.end() ? QString() : found->second;
}

// What a button of this width shows with these letters.
QString fitting(const Texts& texts, const QFont& letters, int room)
{
    const QString whole = firstThatFits(texts, letters, room);
    if (!whole.isNull() || texts.empty())
        return whole;
    const QFontMetrics metrics(letters);
    const auto shortest =
        std::min_element(texts.begin(), texts.end(), [&metrics](const auto& one, const auto& two) {
            return metrics.horizontalAdvance(one.second) < metrics.horizontalAdvance(two.second);
        });
    return metrics.elidedText(shortest->second, Qt::ElideRight, room);
}

} // namespace

struct YSoftKey::Private
{
    std::array<QPushButton*, buttonCount> buttons;
    std::array<Texts, buttonCount> alternatives;
    std::array<bool, buttonCount> rejects = {}; // a popup, by its own slot
    YAnswer* answer = nullptr;

    static int room(const QPushButton& button) { return button.width() - YTheme::current().margin; }

    // Both keys have the same letters: the usual ones, or the largest smaller ones with which both
    // have a text that fits.
    QFont letters() const
    {
        QFont font = YTheme::current().bodyFont();
        while (font.pixelSize() > YTheme::current().smallestKey && !haveRoom(font))
            font.setPixelSize(font.pixelSize() - 1);
        return font;
    }

    bool haveRoom(const QFont& font) const
    {
        for (std::size_t button = 0; button < buttonCount; ++button)
            if (!alternatives[button].empty() &&
                firstThatFits(alternatives[button], font, room(*buttons[button])).isNull())
                return false;
        return true;
    }

    void refresh() const
    {
        const QFont font = letters();
        for (std::size_t button = 0; button < buttonCount; ++button) {
            buttons[button]->setFont(font);
            buttons[button]->setText(fitting(alternatives[button], font, room(*buttons[button])));
        }
    }

    QPushButton* at(int button) const { return buttons[static_cast<std::size_t>(button)]; }

    bool isWayOut(int button) const
    {
        const auto& texts = alternatives[static_cast<std::size_t>(button)];
        return rejects[static_cast<std::size_t>(button)] ||
               std::any_of(texts.begin(), texts.end(),
                           [](const auto& text) { return saysWayOut(text.second); });
    }

    // The button that a phone key stands for, or -1: the key on the left does what is written on
    // the left, which is the second of the two where the language is read from right to left.
    int buttonOfKey(int key) const
    {
        const bool turned = buttons[0]->layoutDirection() == Qt::RightToLeft;
        if (key == Qt::Key_F1)
            return turned ? Right : Left;
        if (key == Qt::Key_F2)
            return turned ? Left : Right;
        if (key != Qt::Key_Escape)
            return -1;
        return isWayOut(Right) ? Right : isWayOut(Left) ? Left : -1;
    }
};

YSoftKey::YSoftKey(const char* /*layout*/, QWidget* parent, QWidget* keyReceiver)
    : QWidget(parent), d(new Private)
{
    YDress::wear(this);
    d->answer = new YAnswer(this);
    for (QPushButton*& button : d->buttons) {
        button = new QPushButton(this);
        button->setFlat(true);
        button->setFocusPolicy(Qt::NoFocus);
    }
    if (keyReceiver)
        keyReceiver->installEventFilter(this);
    resize(sizeHint());
}

YSoftKey::~YSoftKey() = default;

void YSoftKey::showButton(int button, bool visible)
{
    if (isButton(button))
        d->at(button)->setVisible(visible);
}

bool YSoftKey::isButtonVisible(int button) const
{
    return isButton(button) && !d->at(button)->isHidden();
}

void YSoftKey::setText(int button, const QString& text, int priority)
{
    if (!isButton(button))
        return;
    auto& alternatives = d->alternatives[static_cast<std::size_t>(button)];
    if (text.isEmpty())
        alternatives.erase(priority);
    else
        alternatives[priority] = text;
    d->refresh();
    update();
}

QString YSoftKey::text(int button) const
{
    return isButton(button) ? d->at(button)->text() : QString();
}

void YSoftKey::setClickedSlot(int button, QObject* receiver, const char* member)
{
    if (!isButton(button))
        return;
    disconnect(d->at(button), SIGNAL(clicked()), nullptr, nullptr);
    d->rejects[static_cast<std::size_t>(button)] =
        qobject_cast<YPopup*>(receiver) && qstrcmp(member, SLOT(reject())) == 0;
    if (receiver)
        connect(d->at(button), SIGNAL(clicked()), receiver, member);
}

void YSoftKey::setOptionsMenu(int button, YOptionsMenu* menu)
{
    setClickedSlot(button, menu, SLOT(show()));
}

void YSoftKey::click(int button)
{
    if (isButtonVisible(button))
        d->at(button)->click();
}

QSize YSoftKey::sizeHint() const
{
    return QSize(parentWidget() ? parentWidget()->width() : 0, YTheme::current().softKeyHeight);
}

bool YSoftKey::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    const auto* key = static_cast<QKeyEvent*>(event);
    const int button = d->buttonOfKey(key->key());
    if (button < 0)
        return false;
    if (!key->isAutoRepeat()) {
        const QPointer<YSoftKey> self(this);
        click(button);
        if (self && isVisible() && isButtonVisible(button))
            d->answer->press(d->at(button));
    }
    return true;
}

void YSoftKey::paintEvent(QPaintEvent*)
{
    const YTheme& theme = YTheme::current();
    QPainter painter(this);
    painter.fillRect(rect(), theme.bar);
    painter.fillRect(0, 0, width(), theme.line, theme.border);
    const bool both = isButtonVisible(Left) && isButtonVisible(Right);
    if (both && !text(Left).isEmpty() && !text(Right).isEmpty())
        painter.fillRect(width() / 2, theme.margin, theme.line, height() - 2 * theme.margin,
                         theme.border);
}

void YSoftKey::resizeEvent(QResizeEvent*)
{
    const int half = width() / 2;
    const int line = YTheme::current().line;
    const QRect first(0, line, half, height() - line);
    const QRect second(half + line, line, width() - half - line, height() - line);
    d->at(Left)->setGeometry(QStyle::visualRect(layoutDirection(), rect(), first));
    d->at(Right)->setGeometry(QStyle::visualRect(layoutDirection(), rect(), second));
    d->refresh();
}
