#include "body/body.h"

#include <QApplication>
#include <QVBoxLayout>
#include <QWidget>

namespace phone {

namespace {

class DeskBody : public Body
{
public:
    explicit DeskBody(QWidget* display)
    {
        auto* layout = new QVBoxLayout(&m_window);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->setSizeConstraint(QLayout::SetFixedSize);
        layout->addWidget(display);
        m_window.setWindowTitle(QApplication::applicationDisplayName());
    }

    void show() override { m_window.show(); }

private:
    QWidget m_window;
};

} // namespace

void addBodyOptions(CLI::App& /*app*/, BodyOptions& /*options*/) {}

std::unique_ptr<Body> makeBody(const BodyOptions& /*options*/, QWidget* display)
{
    return std::make_unique<DeskBody>(display);
}

} // namespace phone
