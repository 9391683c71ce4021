#include "FormatRegistry.h"

#include "IExportBuilder.h"

#include "report/CReportBuilderCSV.h"
#include "report/CReportBuilderHTML.h"
#include "report/CReportBuilderJSON.h"
#include "report/CReportBuilderPDF.h"
#include "report/CReportBuilderTXT.h"
#include "report/CReportBuilderXML.h"
#include "report/stdf/CReportBuilderSTDF.h"
#include "statistics/CStatisticsReportBuilderCSV.h"
#include "statistics/CStatisticsReportBuilderXML.h"
#include "testplan/CTestPlanBuilderXML.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace ZYN::FormatRegistry {

namespace {

using namespace Qt::StringLiterals;

using Factory = IExportBuilder* (*)();

/// The names a format is chosen by, upper case, its own first; unused places are null (not empty: the
/// empty name is one).
using Names = std::array<QLatin1StringView, 3>;

template <class Builder>
IExportBuilder* Create()
{
    return new Builder;
}

IExportBuilder* CreateLotFileBuilder()
{
    return new CReportBuilderSTDF(true);
}

struct ReportFormat {
    Names names;
    QLatin1StringView extension;
    /// What a file name is searched for.
    std::array<QLatin1StringView, 2> marks;
    Factory create;
};

// A file name gets the first format, from the top, one of whose marks it holds anywhere.
constexpr ReportFormat reportFormats[] = {
    {{"CSV"_L1}, "csv"_L1, {".csv"_L1}, Create<CReportBuilderCSV>},
    {{"TXT"_L1, "ASCII"_L1, "TEXT"_L1}, "txt"_L1, {".txt"_L1}, Create<CReportBuilderTXT>},
    {{"XML"_L1, ""_L1, "DEFAULT"_L1}, "zyr"_L1, {".xml"_L1, ".zyr"_L1}, Create<CReportBuilderXML>},
    {{"PDF"_L1}, "pdf"_L1, {".pdf"_L1}, Create<CReportBuilderPDF>},
    {{"HTML"_L1}, "html"_L1, {".html"_L1}, Create<CReportBuilderHTML>},
    {{"JSON"_L1}, "json"_L1, {".json"_L1}, Create<CReportBuilderJSON>},
    // ".std" is part of ".stdf" and comes first; both names mean the same builder.
    {{"STD"_L1}, "std"_L1, {".std"_L1}, CreateLotFileBuilder},
    {{"STDF"_L1}, "stdf"_L1, {".stdf"_L1}, CreateLotFileBuilder},
};

struct StatisticsFormat {
    Names names;
    Factory create;
};

constexpr StatisticsFormat statisticsFormats[] = {
    {{"XML"_L1, ""_L1, "DEFAULT"_L1}, Create<CStatisticsReportBuilderXML>},
    {{"CSV"_L1}, Create<CStatisticsReportBuilderCSV>},
};

/// The row of a table that has the name; null when there is none.
template <class Format, std::size_t size>
const Format* Find(const Format (&formats)[size], const QString& name)
{
    const QString wanted = name.trimmed().toUpper();
    const auto* const row = std::find_if(std::begin(formats), std::end(formats), [&](const Format& format) {
        return std::any_of(format.names.begin(), format.names.end(), [&](QLatin1StringView candidate) {
            return !candidate.isNull() && candidate == wanted;
        });
    });
    return row == std::end(formats) ? nullptr : row;
}

template <class Format, std::size_t size>
IExportBuilder* CreateFrom(const Format (&formats)[size], const QString& name)
{
    const Format* const format = Find(formats, name);
    return format ? format->create() : nullptr;
}

} // namespace

IExportBuilder* CreateReportBuilder(const QString& format)
{
    return CreateFrom(reportFormats, format);
}

IExportBuilder* CreateStatisticsBuilder(const QString& format)
{
    return CreateFrom(statisticsFormats, format);
}

IExportBuilder* CreateTestPlanBuilder(const QString&, bool excludeBinIds)
{
    return new CTestPlanBuilderXML(excludeBinIds);
}

QString ExtensionForFormat(const QString& format)
{
    const ReportFormat* const row = Find(reportFormats, format);
    return row ? QString(row->extension) : QString();
}

QString FormatForExtension(const QString& fileName)
{
    for (const ReportFormat& format : reportFormats) {
        for (const QLatin1StringView mark : format.marks) {
            if (!mark.isNull() && fileName.contains(mark))
                return format.names.front();
        }
    }
    return {};
}

bool ValidFormat(const QString& format)
{
    return !format.isEmpty() && !ExtensionForFormat(format).isEmpty();
}

} // namespace ZYN::FormatRegistry
