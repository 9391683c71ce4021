// Reports beside what people would use instead: XML read by expat, libxml2 and pugixml and written by pugixml
// and libxml2, JSON by RapidJSON, rows of CSV without the flush that ends each. The others know nothing of
// what they read and write: they count it, or have it at hand as their own tree.

#include "Comparison.h"
#include "LoadModel.h"

#include "export/CExportDirectorReport.h"
#include "export/FormatRegistry.h"
#include "export/IExportBuilder.h"
#include "runs/ReportRuns.h"

#include <ZYNCommon/UUTTest.h>
#include <ZYNPersistence/CImportServiceReport.h>

#include <expat.h>
#include <libxml/parser.h>
#include <libxml/tree.h>
#include <pugixml.hpp>
#include <rapidjson/document.h>
#include <rapidjson/filewritestream.h>
#include <rapidjson/prettywriter.h>

#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtCore/QTextStream>

#include <array>
#include <cstdio>
#include <memory>

using namespace ZYN;

namespace {

constexpr int Measurements = 20'000;

/// Reports of one load, in a folder of their own.
class Reports {
public:
    QString File(const char* format) const
    {
        const QString name = m_folder.filePath(QString::fromLatin1(format));
        if (!QFile::exists(name))
            Export(format, name);
        return name;
    }

    void Export(const char* format, const QString& fileName) const
    {
        const std::unique_ptr<IExportBuilder> builder(
            FormatRegistry::CreateReportBuilder(QString::fromLatin1(format)));
        CExportDirectorReport director;
        if (!builder->OpenFile(fileName) || !director.ExportUUTTest(m_load.get(), builder.get()))
            qFatal("no report");
    }

    QByteArray Bytes(const char* format) const
    {
        QFile file(File(format));
        if (!file.open(QIODevice::ReadOnly))
            qFatal("no report to read");
        return file.readAll();
    }

    QString Scratch() const { return m_folder.filePath(QStringLiteral("scratch")); }

private:
    QSharedPointer<UUTTest> m_load = Bench::MakeLoad(Measurements);
    QTemporaryDir m_folder;
};

const Reports& TheReports()
{
    static const Reports reports;
    return reports;
}

void ReadAsRuns()
{
    std::vector<Run> runs;
    if (ReportRuns().ReadFile(TheReports().File("XML").toStdString(), &runs) || runs.empty())
        qFatal("not read");
}

void Import()
{
    UUTTest test(0, QString());
    CImportServiceReport service;
    service.SetInputFileName(TheReports().File("XML"));
    if (!service.Import(&test) || test.GetResultSets().isEmpty())
        qFatal("not imported");
}

void CountByExpat()
{
    const QByteArray bytes = TheReports().Bytes("XML");
    std::size_t count = 0;
    const std::unique_ptr<XML_ParserStruct, decltype(&XML_ParserFree)> parser(XML_ParserCreate(nullptr),
                                                                              &XML_ParserFree);
    XML_SetUserData(parser.get(), &count);
    XML_SetStartElementHandler(parser.get(), [](void* user, const XML_Char*, const XML_Char** attributes) {
        for (; *attributes; attributes += 2)
            ++*static_cast<std::size_t*>(user);
    });
    XML_SetCharacterDataHandler(parser.get(), [](void* user, const XML_Char*, int length) {
        *static_cast<std::size_t*>(user) += std::size_t(length);
    });
    if (!XML_Parse(parser.get(), bytes.constData(), int(bytes.size()), 1) || count == 0)
        qFatal("expat");
}

void CountByLibxml2()
{
    const QByteArray bytes = TheReports().Bytes("XML");
    std::size_t count = 0;
    xmlSAXHandler handler{};
    handler.initialized = XML_SAX2_MAGIC;
    handler.startElementNs = [](void* user, const xmlChar*, const xmlChar*, const xmlChar*, int,
                                const xmlChar**, int attributes, int, const xmlChar**) {
        *static_cast<std::size_t*>(user) += std::size_t(attributes);
    };
    handler.characters = [](void* user, const xmlChar*, int length) {
        *static_cast<std::size_t*>(user) += std::size_t(length);
    };
    if (xmlSAXUserParseMemory(&handler, &count, bytes.constData(), int(bytes.size())) != 0 || count == 0)
        qFatal("libxml2");
}

void CountByPugixml()
{
    QByteArray bytes = TheReports().Bytes("XML");
    struct Counter : pugi::xml_tree_walker {
        bool for_each(pugi::xml_node& node) override
        {
            for ([[maybe_unused]] const pugi::xml_attribute& attribute : node.attributes())
                ++count;
            return true;
        }
        std::size_t count = 0;
    } counter;
    pugi::xml_document document;
    if (!document.load_buffer_inplace(bytes.data(), std::size_t(bytes.size())) ||
        !document.traverse(counter) || counter.count == 0)
        qFatal("pugixml");
}

void Compare(benchmark::State& state, void (*work)(), void (*floor)())
{
    TheReports().File("XML"); // not while the first turn is timed
    Bench::Compare(state, Measurements, work, floor);
}

void Write(benchmark::State& state, const char* format, const std::function<void(const QString&)>& floor)
{
    const Reports& reports = TheReports();
    Bench::Compare(
        state, Measurements, [&] { reports.Export(format, reports.Scratch()); },
        [&] { floor(reports.Scratch()); });
}

void XmlBesidePugixml(benchmark::State& state)
{
    pugi::xml_document document;
    const QByteArray bytes = TheReports().Bytes("XML");
    if (!document.load_buffer(bytes.constData(), std::size_t(bytes.size())))
        qFatal("pugixml");
    Write(state, "XML", [&](const QString& fileName) {
        if (!document.save_file(fileName.toUtf8().constData(), "    "))
            qFatal("pugixml");
    });
}

void XmlBesideLibxml2(benchmark::State& state)
{
    const QByteArray bytes = TheReports().Bytes("XML");
    const std::unique_ptr<xmlDoc, decltype(&xmlFreeDoc)> document(
        xmlReadMemory(bytes.constData(), int(bytes.size()), nullptr, nullptr,
                      XML_PARSE_NOBLANKS | XML_PARSE_HUGE),
        &xmlFreeDoc);
    Write(state, "XML", [&](const QString& fileName) {
        if (xmlSaveFormatFile(fileName.toUtf8().constData(), document.get(), 1) < 0)
            qFatal("libxml2");
    });
}

void JsonBesideRapidJson(benchmark::State& state)
{
    rapidjson::Document document;
    if (document.Parse(TheReports().Bytes("JSON").constData()).HasParseError())
        qFatal("RapidJSON");
    Write(state, "JSON", [&](const QString& fileName) {
        const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(
            std::fopen(fileName.toUtf8().constData(), "wb"), &std::fclose);
        std::array<char, 65536> buffer{};
        rapidjson::FileWriteStream stream(file.get(), buffer.data(), buffer.size());
        rapidjson::PrettyWriter writer(stream);
        if (!document.Accept(writer))
            qFatal("RapidJSON");
    });
}

void CsvBesideUnflushedRows(benchmark::State& state)
{
    const QStringList rows = QString::fromUtf8(TheReports().Bytes("CSV")).split(QLatin1Char('\n'));
    Write(state, "CSV", [&](const QString& fileName) {
        QFile file(fileName);
        if (!file.open(QIODevice::WriteOnly | QIODevice::Text))
            qFatal("no file");
        QTextStream stream(&file);
        for (const QString& row : rows)
            stream << row << '\n';
    });
}

} // namespace

#define ZYN_BESIDE(name, ...)                                                                                \
    BENCHMARK_CAPTURE(__VA_ARGS__)->Name(name)->UseManualTime()->Unit(benchmark::kMillisecond)

ZYN_BESIDE("report to runs / expat", Compare, expat, ReadAsRuns, CountByExpat);
ZYN_BESIDE("report to runs / libxml2", Compare, libxml2, ReadAsRuns, CountByLibxml2);
ZYN_BESIDE("report to runs / pugixml", Compare, pugixml, ReadAsRuns, CountByPugixml);
ZYN_BESIDE("import / expat", Compare, import_, Import, CountByExpat);
BENCHMARK(XmlBesidePugixml)->Name("XML report / pugixml")->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(XmlBesideLibxml2)->Name("XML report / libxml2")->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(JsonBesideRapidJson)
    ->Name("JSON report / RapidJSON")
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK(CsvBesideUnflushedRows)
    ->Name("CSV / rows not flushed")
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
