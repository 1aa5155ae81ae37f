// What only Qt 6 lets a test see.
#include <atomic>
#include <random>
#include <string>
#include <thread>

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QSemaphore>
#include <QTranslator>

#include <gtest/gtest.h>

#include "support/guarded.h"
#include "support/later.h"
#include "support/loop.h"
#include "support/notation.h"
#include "support/text.h"
#include "support/translate.h"

using namespace support;

namespace {

// Answers with what it was asked.
class Echo : public QTranslator
{
public:
    QString translate(const char* context, const char* text, const char* comment,
                      int) const override
    {
        return QString("%1/%2/%3").arg(context, text, comment);
    }

    bool isEmpty() const override { return false; }
};

} // namespace

TEST(WakeLoop, FromAnotherThreadEndsEachWaitOfTheLoop)
{
    // More waits than anything else could end before the timer gives up.
    const int enough = 500;
    QSemaphore waits;
    std::atomic<bool> done = false;
    std::thread other([&] {
        for (waits.acquire(); !done; waits.acquire())
            wakeLoop();
    });
    int woken = 0;
    QObject receiver;
    QAbstractEventDispatcher* const dispatcher = QAbstractEventDispatcher::instance();
    QObject::connect(dispatcher, &QAbstractEventDispatcher::aboutToBlock, &receiver,
                     [&] { waits.release(); });
    QObject::connect(dispatcher, &QAbstractEventDispatcher::awake, &receiver, [&] {
        if (++woken == enough)
            exitLoop();
    });
    const Guarded<Later> giveUp(new Later(20000, [] { exitLoop(); }));
    enterLoop();
    EXPECT_GE(woken, enough);
    done = true;
    waits.release();
    other.join();
    delete giveUp.get();
}

TEST(Translate, AsksTheTranslatorForTextAndCommentInTheContextOfQObject)
{
    Echo echo;
    ASSERT_TRUE(QCoreApplication::installTranslator(&echo));
    EXPECT_EQ(shown(translate("TXT_RID_SOFTKEY_CANCEL", "Cancel")),
              "QObject/TXT_RID_SOFTKEY_CANCEL/Cancel");
    QCoreApplication::removeTranslator(&echo);
}

TEST(FromUtf8, AgreesWithQt6OnBytesAtRandom)
{
    // Bytes that make up and break sequences are more frequent here than in plain noise.
    const unsigned char likely[] = {0x00, 0x41, 0x7f, 0x80, 0x8f, 0x90, 0x9f, 0xa0, 0xaf,
                                    0xbf, 0xc0, 0xc1, 0xc2, 0xdf, 0xe0, 0xe2, 0xed, 0xef,
                                    0xf0, 0xf1, 0xf4, 0xf5, 0xf7, 0xf8, 0xfc, 0xfe, 0xff};
    std::mt19937 random(20240229);
    for (int i = 0; i < 100000; ++i) {
        std::string bytes(random() % 12, '\0');
        for (char& byte : bytes)
            byte = static_cast<char>(random() % 4 ? likely[random() % sizeof likely] : random());
        if (bytes.compare(0, 3, "\xef\xbb\xbf") == 0)
            continue; // the mark that Qt 6 drops is kept here
        const QString text = fromUtf8(bytes.data(), static_cast<int>(bytes.size()));
        ASSERT_EQ(QString::fromUtf8(bytes.data(), qsizetype(bytes.size())), text)
            << hexadecimal(bytes);
        ASSERT_EQ(text.toUtf8().toStdString(), utf8(text)) << hexadecimal(bytes);
    }
}

TEST(Utf8, AgreesWithQt6OnUnitsAtRandom)
{
    const char16_t likely[] = {0x0000, 0x0041, 0x007f, 0x0080, 0x07ff, 0x0800, 0xd7ff,
                               0xd800, 0xdbff, 0xdc00, 0xdfff, 0xe000, 0xffff};
    std::mt19937 random(20240301);
    for (int i = 0; i < 100000; ++i) {
        std::u16string units(random() % 8, u'\0');
        for (char16_t& unit : units)
            unit = random() % 4 ? likely[random() % std::size(likely)]
                                : static_cast<char16_t>(random());
        const QString text = made(units);
        ASSERT_EQ(text.toUtf8().toStdString(), utf8(text)) << shown(text);
    }
}
