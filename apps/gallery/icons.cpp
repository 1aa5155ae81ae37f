// All icons of the phone.
#include "scene.h"

#include <QPainter>
#include <QWidget>

#include <toolkit/look/yicon.h>
#include <toolkit/look/ytheme.h>
#include <ykbmainwidget.h>

namespace {

// The icons in rows, in the colour of texts, and those for what has happened in the colours for
// that.
class IconTable : public QWidget
{
public:
    using QWidget::QWidget;

protected:
    void paintEvent(QPaintEvent*) override
    {
        constexpr int columns = 8;
        const int side = width() / columns;
        QPainter painter(this);
        int number = 0;
        for (const QString& name : YIcon::names()) {
            const QRect cell(number % columns * side, number / columns * side, side, side);
            YIcon::draw(painter, name, cell.adjusted(3, 3, -3, -3), colourOf(name));
            ++number;
        }
    }

private:
    static QColor colourOf(const QString& name)
    {
        const YTheme& theme = YTheme::current();
        return name == "success"   ? theme.success
               : name == "failure" ? theme.failure
               : name == "warning" ? theme.warning
                                   : theme.text;
    }
};

void icons(Stage& stage)
{
    auto& page = stage.make<YKbMainWidget>(nullptr, nullptr, 0);
    page.setMainWidgetTitle("Icons");
    page.setContentWidget(new IconTable(&page));
    page.show();
}

} // namespace

std::vector<Scene> iconScenes()
{
    return {{"icons", icons}};
}
