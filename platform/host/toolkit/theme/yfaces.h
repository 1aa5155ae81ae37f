// The faces of the letters, by language.
#ifndef YFACES_H
#define YFACES_H

#include <QStringList>

struct YFaces
{
    // For QFont::setFamilies(), in the language that is spoken now.
    static QStringList families();
    // Whether the language is written in ideographs, which have more strokes than letters.
    static bool areIdeographs();
};

#endif
