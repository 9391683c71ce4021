#include "Browser.h"

#include <QtCore/QFile>
#include <QtCore/QProcess>
#include <QtCore/QStandardPaths>
#include <QtCore/QTemporaryDir>
#include <QtCore/QUrl>

namespace ZYN::Browser {

using namespace Qt::StringLiterals;

namespace {

constexpr int timeoutMs = 60'000;

Outcome RunOnce(const QString& fileName, const QStringList& task)
{
    const QString program = QStandardPaths::findExecutable(u"chromium"_s);
    if (program.isEmpty())
        return {{}, u"no chromium on the path; scripts/setup installs it"_s};
    // A profile of its own: a running or crashed browser of the same user does not matter.
    const QTemporaryDir profile;
    QStringList arguments{u"--headless"_s,
                          u"--no-sandbox"_s,
                          u"--disable-gpu"_s,
                          u"--no-first-run"_s,
                          u"--disable-background-networking"_s,
                          u"--disable-component-update"_s,
                          u"--disable-sync"_s,
                          u"--disable-quic"_s,
                          u"--user-data-dir="_s + profile.path()};
    arguments += task;
    arguments += QUrl::fromLocalFile(fileName).toString(QUrl::FullyEncoded);

    QProcess browser;
    browser.start(program, arguments);
    if (!browser.waitForFinished(timeoutMs)) {
        const QString reason = browser.errorString();
        browser.kill();
        browser.waitForFinished();
        return {{}, u"chromium did not finish: "_s + reason};
    }
    if (browser.exitStatus() != QProcess::NormalExit || browser.exitCode() != 0)
        return {{}, u"chromium failed: "_s + QString::fromUtf8(browser.readAllStandardError())};
    return {browser.readAllStandardOutput(), {}};
}

/// Its first start on a loaded machine may fail without any fault of the page.
Outcome Run(const QString& fileName, const QStringList& task)
{
    const Outcome first = RunOnce(fileName, task);
    return first.error.isEmpty() ? first : RunOnce(fileName, task);
}

} // namespace

Outcome Open(const QString& fileName)
{
    return Run(fileName, {u"--dump-dom"_s});
}

QString Screenshot(const QString& fileName, const QString& pngFileName, int height)
{
    const Outcome outcome = Run(fileName, {u"--hide-scrollbars"_s, u"--window-size=1000,%1"_s.arg(height),
                                           u"--screenshot="_s + pngFileName});
    if (!outcome.error.isEmpty())
        return outcome.error;
    return QFile::exists(pngFileName) ? QString() : u"chromium took no picture"_s;
}

} // namespace ZYN::Browser
