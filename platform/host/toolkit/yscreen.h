// The phone's screen: one widget in which every page and popup is a layer.
#ifndef YSCREEN_H
#define YSCREEN_H

#include <vector>

#include <QPointer>
#include <QSize>
#include <QWidget>

#include "platform_export.h"

// 240 by 320 logical pixels, or what VORN_SCREEN says (for instance "480x800"). It opens as a
// window by itself with its first layer and closes with the last one. Where VORN_BODY names a body
// (ybody.h), it opens in that, which stays open; a program that plays the phone puts it into a
// widget of its own instead. When its window is closed, hidden by the program or deleted, each
// layer that is shown is closed, the top one first, as if the user had. A widget around it may give
// it another size at any time: pages fill it, and popups stay at its lower edge. GUI thread only.
class VORN_PLATFORM_API YScreen : public QWidget
{
    Q_OBJECT

public:
    // A page fills the screen and lies below every popup; a popup lies above what was shown before
    // it.
    enum class Kind { Page, Popup };

    // The screen, made with the first call; it lives until the application object is deleted.
    static YScreen* instance();
    ~YScreen() override;

    // Makes a hidden layer of `layer`. The screen does not own it: it is deleted with `owner` when
    // there is one, and survives the screen otherwise.
    void addLayer(QWidget* layer, QWidget* owner, Kind kind, bool modal);
    // To be called by the destructor of a layer; the screen may be gone by then.
    static void removeLayer(QWidget* layer);

    // The layer that takes the keys, or null while none is shown.
    QWidget* activeLayer() const;

    // Moves the focus to the next or previous widget of one layer; false when it has no other.
    static bool walkFocus(QWidget* layer, bool next);

    bool eventFilter(QObject* watched, QEvent* event) override;

signals:
    // The screen has another size; `before` is the old one.
    void resized(const QSize& before);

protected:
    void paintEvent(QPaintEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private slots:
    void keepFocus(QWidget* before, QWidget* now);
    void closeWhenEmpty();
    void closeIfHidden();

private:
    struct Layer;

    YScreen();
    static void end();
    void closeLayers();
    void open();
    void forget(QWidget* layer);
    Layer* find(const QObject* widget) const;
    bool isBelowActive(const QWidget* widget) const;
    bool blocked(const QObject* watched, const QEvent& event) const;
    void shown(Layer* layer);
    void hidden(Layer* layer);
    void restack();
    void focusActive();

    std::vector<Layer*> m_layers;
    std::vector<Layer*> m_stack; // those that are shown, the top one last
    QWidget* m_shade;
    QPointer<QWidget> m_body; // the window around the screen, once it was asked for
    bool m_bodyIsAskedFor = false;
    QSize m_size;           // that the layers know of
    bool m_isModal = false; // a modal popup is shown
};

#endif
