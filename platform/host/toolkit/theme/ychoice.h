// What is chosen of the looks that there are, and the theme that comes of it.
#ifndef YCHOICE_H
#define YCHOICE_H

#include <QSize>
#include <QStringList>

#include "toolkit/ylook.h"

struct YTheme;

struct YChoice
{
    static const YTheme& theme();
    static int generation();

    static const YLook& look();
    static void setLook(const YLook& look);
    // The screen has this size now, which may be another kind of screen.
    static void setScreen(const QSize& size);
    // The letters or the desktop's colours are others.
    static void remake();

    static QStringList accents();
    static QStringList textSizes();
};

#endif
