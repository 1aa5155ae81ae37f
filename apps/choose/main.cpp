// Has the user choose one of the stored profiles and prints its name: the selection dialog by
// itself.
//
//     vorn-choose [NAME]     NAME is the profile that is checked at first
//
// Exit status: 0 chosen, 1 not chosen or no profile is stored, 2 wrong use, 3 the profiles cannot
// be listed.

#include <cstdio>

#include <qstringlist.h>

#include <profilefunctions.h>
#include <vornqtnapi_texts.h>
#include <yapplication.h>

enum Exit { Chosen = 0, NotChosen = 1, WrongUse = 2, NotListed = 3 };

int main(int argc, char** argv)
{
    YApplication application(argc, argv);
    if (argc > 2) {
        std::fprintf(stderr, "Usage: vorn-choose [NAME]\n");
        return WrongUse;
    }
    const QStringList arguments = QApplication::arguments();
    QString name = arguments.size() == 2 ? arguments[1] : QString();
    switch (const int result = getProfileNamebySelect(name)) {
    case 0:
        std::printf("%s\n", name.toUtf8().constData());
        return Chosen;
    case VORN_ERR_NONE_CHOSEN:
        std::fprintf(stderr, "vorn-choose: %s\n", vornResultText(result));
        return NotChosen;
    default:
        std::fprintf(stderr,
                     "vorn-choose: the profiles cannot be listed: %s (%d); try: vornctl doctor\n",
                     vornResultText(result), result);
        return NotListed;
    }
}
