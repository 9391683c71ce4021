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

#include <QtCore/QObject>

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

/// All that there is to know of a format.
struct Row {
    Names names;
    QLatin1StringView extension;
    /// What a file name is searched for.
    std::array<QLatin1StringView, 2> marks{};
    Factory create = nullptr;
    /// What it is good for. Without one the row is another name of a format.
    const char* purpose = nullptr;
    /// Where it stands in a list for people.
    int place = 0;
    /// What a file dialog offers; null where it does not offer the format.
    QLatin1StringView mask{};
    /// What a file dialog calls it, where that is not its name.
    QLatin1StringView title{};
    /// One file takes the parts of many reports.
    bool takesManyReports = false;
};

// A file name gets the first format, from the top, one of whose marks it holds anywhere.
constexpr Row reportFormats[] = {
    {.names = {"CSV"_L1},
     .extension = "csv"_L1,
     .marks = {".csv"_L1},
     .create = Create<CReportBuilderCSV>,
     .purpose = QT_TRANSLATE_NOOP("QObject", "spreadsheets"),
     .place = 4,
     .mask = "*.csv"_L1},
    {.names = {"TXT"_L1, "TEXT"_L1, "ASCII"_L1},
     .extension = "txt"_L1,
     .marks = {".txt"_L1},
     .create = Create<CReportBuilderTXT>,
     .purpose = QT_TRANSLATE_NOOP("QObject", "reading and printing as plain text"),
     .place = 5,
     .mask = "*.txt"_L1,
     .title = "Text"_L1},
    // Dialogs offer the extension by which other programs know such files.
    {.names = {"XML"_L1, ""_L1, "DEFAULT"_L1},
     .extension = "zyr"_L1,
     .marks = {".xml"_L1, ".zyr"_L1},
     .create = Create<CReportBuilderXML>,
     .purpose = QT_TRANSLATE_NOOP("QObject", "native: everything that is read back"),
     .place = 1,
     .mask = "*.xml"_L1},
    {.names = {"PDF"_L1},
     .extension = "pdf"_L1,
     .marks = {".pdf"_L1},
     .create = Create<CReportBuilderPDF>,
     .purpose = QT_TRANSLATE_NOOP("QObject", "printing and archives"),
     .place = 2,
     .mask = "*.pdf"_L1},
    {.names = {"HTML"_L1},
     .extension = "html"_L1,
     .marks = {".html"_L1},
     .create = Create<CReportBuilderHTML>,
     .purpose = QT_TRANSLATE_NOOP("QObject", "browsers"),
     .place = 3,
     .mask = "*.html"_L1},
    {.names = {"JSON"_L1},
     .extension = "json"_L1,
     .marks = {".json"_L1},
     .create = Create<CReportBuilderJSON>,
     .purpose = QT_TRANSLATE_NOOP("QObject", "programs"),
     .place = 6,
     .mask = "*.json"_L1},
    // ".std" is part of ".stdf" and comes first; both names mean the same builder. Lots grow by themselves:
    // no dialog offers them.
    {.names = {"STD"_L1}, .extension = "std"_L1, .marks = {".std"_L1}, .create = CreateLotFileBuilder},
    {.names = {"STDF"_L1},
     .extension = "stdf"_L1,
     .marks = {".stdf"_L1},
     .create = CreateLotFileBuilder,
     .purpose = QT_TRANSLATE_NOOP("QObject", "yield tools: STDF V4, appended to a lot file"),
     .place = 7,
     .takesManyReports = true},
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

/// The formats without their other names, as people find them in a list.
QList<const Row*> ListedRows()
{
    QList<const Row*> rows;
    for (const Row& row : reportFormats)
        if (row.purpose)
            rows.append(&row);
    std::sort(rows.begin(), rows.end(), [](const Row* a, const Row* b) { return a->place < b->place; });
    return rows;
}

/// All names that mean the format but its own one and the empty one, in lower case.
QStringList OtherNames(const Row& format)
{
    QStringList names;
    for (const Row& row : reportFormats) {
        if (row.create != format.create)
            continue;
        for (const QLatin1StringView name : row.names)
            if (!name.isEmpty() && name != format.names.front())
                names.append(QString(name).toLower());
    }
    return names;
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
    const Row* const row = Find(reportFormats, format);
    return row ? QString(row->extension) : QString();
}

QString FormatForExtension(const QString& fileName)
{
    for (const Row& format : reportFormats) {
        for (const QLatin1StringView mark : format.marks) {
            if (!mark.isNull() && fileName.contains(mark))
                return format.names.front();
        }
    }
    return {};
}

QList<ReportFormat> Formats()
{
    QList<ReportFormat> formats;
    for (const Row* const row : ListedRows())
        formats.append(
            {row->names.front(), OtherNames(*row), row->extension, row->purpose, row->takesManyReports});
    return formats;
}

QString FileNameFilter()
{
    QStringList filters;
    for (const Row* const row : ListedRows())
        if (!row->mask.isNull())
            filters.append(QStringLiteral("%1 %2 (%3)")
                               .arg(row->title.isNull() ? row->names.front() : row->title,
                                    QObject::tr("File"), row->mask));
    return filters.join(";;"_L1);
}

bool ValidFormat(const QString& format)
{
    return !format.isEmpty() && !ExtensionForFormat(format).isEmpty();
}

} // namespace ZYN::FormatRegistry
