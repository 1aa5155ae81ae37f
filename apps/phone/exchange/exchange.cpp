#include "exchange/exchange.h"

#include <algorithm>
#include <exception>

#include <QFileInfo>

#include <exchange/exchange_file.h>
#include <exchange/profile_import.h>
#include <failure.h>
#include <input_file.h>
#include <private_file.h>
#include <profile/record.h>
#include <profile/store.h>

#include <napi.h>

#include "messages/failures.h"
#include "messages/messages.h"
#include "messages/work.h"
#include "texts/phone_text.h"

namespace phone {

namespace {

QString importTitle()
{
    return text("TXT_RID_PHONE_MENU_IMPORT", "Import");
}

QString exportTitle()
{
    return text("TXT_RID_PHONE_MENU_EXPORT", "Export");
}

// What there is no room for has a remedy of its own; the rest says itself what is wrong.
QString failureText(const ctl::Failure& failure)
{
    if (failure.status() == ctl::Exit::NoRoom)
        return resultMessage(NAPI_ERR_MEMORY_FULL);
    return QString::fromUtf8(failure.what());
}

// Runs a step of the work and gives what went wrong, in words; "" when nothing did.
template <class Step> QString tried(const Step& step)
{
    try {
        step();
        return QString();
    } catch (const ctl::Failure& failure) {
        return failureText(failure);
    } catch (const std::exception&) {
        return resultMessage(NAPI_ERR_RESOURCES);
    }
}

struct Import
{
    std::string file;
    std::vector<ctl::ImportedProfile> profiles;
    std::vector<bool> stored; // whether each of them is, already
    std::size_t count = 0;    // that were stored now
    QString problem;

    void read()
    {
        problem = tried([this] {
            profiles = ctl::readExchange(
                file, false, ctl::readFile(file, ctl::largestExchangeFile, ctl::Exit::Input));
            stored = ctl::checkAgainstStore(file, true, profiles);
        });
    }

    void store(Progress& progress)
    {
        progress.all = int(profiles.size());
        problem = tried([&] {
            ctl::storeProfiles(profiles, stored, [&](std::size_t done) {
                count = done;
                progress.done = int(done);
                return !progress.isCancelled;
            });
            count = progress.isCancelled ? count : profiles.size();
        });
    }
};

QString countText(std::size_t count)
{
    return count == 1
               ? text("TXT_RID_PHONE_IMPORT_ONE", "1 connection was imported.")
               : text("TXT_RID_PHONE_IMPORT_SOME", "%1 connections were imported.").arg(count);
}

std::string exportedText(const QStringList& names, bool isWithPasswords, Progress& progress)
{
    progress.all = int(names.size());
    ctl::Json list = ctl::Json::array();
    for (const QString& name : names) {
        if (progress.isCancelled)
            break;
        const std::string stored = name.toStdString();
        list.push_back(
            ctl::exported(stored, ctl::readProfile("export the profile", stored), isWithPasswords));
        ++progress.done;
    }
    return ctl::exchangeText(list);
}

bool mayReplace(const Import& import)
{
    const auto known = std::count(import.stored.begin(), import.stored.end(), true);
    return known == 0 ||
           ask(importTitle(), text("TXT_RID_PHONE_IMPORT_REPLACE",
                                   "Connections of the same name are replaced (%1). Go on?")
                                  .arg(known));
}

} // namespace

bool importProfiles(const QString& file)
{
    Import import;
    import.file = file.toStdString();
    work(importTitle(), [&](Progress&) { import.read(); });
    if (import.problem.isEmpty() && import.profiles.empty())
        import.problem = text("TXT_RID_PHONE_IMPORT_NONE", "There is no connection in this file.");
    if (import.problem.isEmpty() && !mayReplace(import))
        return false;
    if (import.problem.isEmpty())
        work(importTitle(), [&](Progress& progress) { import.store(progress); });
    if (import.problem.isEmpty())
        notice(countText(import.count));
    else if (import.count > 0)
        tell(importTitle(), import.problem + QStringLiteral("\n") + countText(import.count));
    else
        tell(importTitle(), import.problem + QStringLiteral("\n") +
                                text("TXT_RID_PHONE_IMPORT_NOTHING", "Nothing was imported."));
    return import.count > 0;
}

void exportProfiles(const QStringList& names, const QString& file, bool isWithPasswords)
{
    QString problem;
    bool isCancelled = false;
    work(exportTitle(), [&](Progress& progress) {
        problem = tried([&] {
            const std::string bytes = exportedText(names, isWithPasswords, progress);
            isCancelled = progress.isCancelled;
            if (!isCancelled)
                ctl::writePrivateFile(file.toStdString(), bytes);
        });
    });
    if (!problem.isEmpty())
        tell(exportTitle(), problem);
    else if (!isCancelled)
        notice(text("TXT_RID_PHONE_EXPORT_DONE", "Written: %1").arg(QFileInfo(file).fileName()));
}

} // namespace phone
