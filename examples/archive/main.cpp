#include <archive/Archive.h>
#include <archive/Questions.h>
#include <runs/ReportRuns.h>

int main(int, char** argv)
{
    // Reports from the command line into an archive, and how many units passed at once.
    std::vector<ZYN::Run> runs;
    ZYN::ReportRuns reports;
    for (char** path = argv + 1; *path; ++path)
        if (const auto fault = reports.ReadFile(*path, &runs))
            qCritical("%s:%lld: %s", *path, static_cast<long long>(fault->line), fault->text.c_str());
    ZYN::Archive archive;
    const bool isKept = archive.Create("line.zya") && archive.Add(runs, nullptr);
    const auto yield = isKept ? ZYN::AskYield(archive, {}, {}) : std::nullopt;
    if (!yield)
        qFatal("%ls", qUtf16Printable(archive.GetErrorText()));
    for (const ZYN::YieldRow& row : *yield)
        qInfo("%lld of %lld", static_cast<long long>(row.firstPass), static_cast<long long>(row.firstRuns));
    return 0;
}
