#include "toolkit/look/ytextlabel.h"

#include "toolkit/look/ywrap.h"

YTextLabel::YTextLabel(QWidget* parent) : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
}

int YTextLabel::heightForWidth(int width) const
{
    return YWrap::height(*this, width);
}

QSize YTextLabel::minimumSizeHint() const
{
    return QSize(0, 0);
}

void YTextLabel::paintEvent(QPaintEvent*)
{
    YWrap::draw(*this);
}
