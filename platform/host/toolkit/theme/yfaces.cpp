#include "toolkit/theme/yfaces.h"

#include "toolkit/look/ytranslator.h"

namespace {

// The face of ideographs in the shapes that a language's readers know; the same letter has another
// one in another language.
struct Ideographs
{
    const char* language;
    const char* face;
};

constexpr Ideographs ideographs[] = {
    {"zh_CN", "Noto Sans CJK SC"},
    {"zh_TW", "Noto Sans CJK TC"},
    {"ja", "Noto Sans CJK JP"},
};

const Ideographs* ofLanguage()
{
    const QString language = YTranslator::catalogueOf(YTranslator::chosenLocale());
    for (const Ideographs& row : ideographs)
        if (language == QLatin1String(row.language))
            return &row;
    return nullptr;
}

} // namespace

// The face of the language's own letters comes first, so that a line is as high as they are. One of
// ideographs is named in either case: the names of networks and profiles may have some.
QStringList YFaces::families()
{
    QStringList names = {QStringLiteral("Noto Sans"), QStringLiteral("DejaVu Sans")};
    const Ideographs* own = ofLanguage();
    names.insert(own ? 0 : names.size(), QLatin1String(own ? own->face : ideographs[0].face));
    return names;
}

bool YFaces::areIdeographs()
{
    return ofLanguage();
}
