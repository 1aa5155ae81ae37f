// A label whose long words are broken.
#ifndef YTEXTLABEL_H
#define YTEXTLABEL_H

#include <QLabel>

// Shows plain text in as many lines as it takes.
class YTextLabel : public QLabel
{
    Q_OBJECT

public:
    explicit YTextLabel(QWidget* parent);

    int heightForWidth(int width) const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

#endif
