#include "phone/hand.h"

#include <QAbstractItemView>
#include <QListWidget>
#include <QTest>
#include <QWindow>

#include <toolkit/yscreen.h>
#include <ysoftkey.h>

namespace {

QWidget* layer()
{
    return YScreen::instance()->activeLayer();
}

QAbstractItemView* list()
{
    for (QAbstractItemView* view : layer()->findChildren<QAbstractItemView*>())
        if (view->isVisible())
            return view;
    return nullptr;
}

// The row that begins with the text; -1 when there is none.
int rowOf(const QAbstractItemView* view, const QString& text)
{
    for (int row = 0; view && row < view->model()->rowCount(); ++row)
        if (view->model()->index(row, 0).data(Qt::AccessibleTextRole).toString().startsWith(text) ||
            view->model()->index(row, 0).data().toString() == text)
            return row;
    return -1;
}

QPoint placeOf(const QString& text)
{
    QAbstractItemView* view = list();
    const QModelIndex index = view->model()->index(rowOf(view, text), 0);
    view->scrollTo(index);
    return view->viewport()->mapTo(YScreen::instance(), view->visualRect(index).center());
}

} // namespace

const char* nameOf(Way way)
{
    switch (way) {
    case Way::Keys:
        return "Keys";
    case Way::Clicks:
        return "Clicks";
    case Way::Touch:
        return "Touch";
    }
    return "";
}

void tapScreen(Way way, const QPoint& place)
{
    static QPointingDevice* const touchScreen = QTest::createTouchDevice();
    QWidget* around = YScreen::instance()->window();
    const QPoint point = YScreen::instance()->mapTo(around, place);
    if (way == Way::Touch) {
        QTest::touchEvent(around->windowHandle(), touchScreen).press(0, point);
        QTest::touchEvent(around->windowHandle(), touchScreen).release(0, point);
    } else {
        QTest::mouseClick(around->windowHandle(), Qt::LeftButton, Qt::NoModifier, point);
    }
}

void Hand::tap(const std::function<QPoint()>& place)
{
    m_person.act([way = m_way, place] { tapScreen(way, place()); });
}

void Hand::softKey(int button)
{
    if (m_way == Way::Keys)
        return m_person.press(button == 0 ? Qt::Key_F1 : Qt::Key_F2);
    tap([button] {
        const auto* keys = layer()->findChild<YSoftKey*>();
        const int x = keys->width() * (button == 0 ? 1 : 5) / 6;
        return keys->mapTo(YScreen::instance(), QPoint(x, keys->height() / 2));
    });
}

void Hand::menu(int button, const QString& item)
{
    softKey(button);
    m_person.see(QStringLiteral("menu"));
    row(item);
}

void Hand::point(const QString& text)
{
    m_person.await(QStringLiteral("find ") + text, [text] { return rowOf(list(), text) >= 0; });
    m_person.act([text] {
        QAbstractItemView* view = list();
        const int wanted = rowOf(view, text);
        for (int tries = 0; tries < 2000 && view->currentIndex().row() != wanted; ++tries)
            QTest::keyClick(YScreen::instance()->window()->windowHandle(), Qt::Key_Down);
    });
}

void Hand::row(const QString& text)
{
    if (m_way == Way::Keys) {
        point(text);
        m_person.press(Qt::Key_Return);
        return;
    }
    m_person.await(QStringLiteral("find ") + text, [text] { return rowOf(list(), text) >= 0; });
    tap([text] { return placeOf(text); });
}
