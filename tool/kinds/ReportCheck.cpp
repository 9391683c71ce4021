#include "kinds/ReportCheck.h"

#include "files/PlainFile.h"
#include "kinds/ReportParts.h"
#include "kinds/ReportStructure.h"
#include "terminal/Texts.h"

#include "import/ReportDocument.h"
#include "import/XmlProlog.h"

#include <ZYNCommon/TestComponent.h>
#include <ZYNCommon/TestMeasurement.h>
#include <ZYNCommon/TestProgram.h>
#include <ZYNCommon/TestResult.h>
#include <ZYNCommon/TestResultSet.h>
#include <ZYNCommon/UUTTest.h>
#include <ZYNCommon/ValidationInterface.h>
#include <ZYNPersistence/CImportServiceReport.h>

#include <QtCore/QSet>
#include <QtCore/QXmlStreamReader>

#include <algorithm>

namespace ZYN::Tool {

namespace {

// Where a program, group, step or measurement begins in the file.
struct Place {
    qint64 line;
    qint64 column;
    QString name;
    bool hasLimits; // a measurement without limits is read with those of the one before it
};

struct RunPlace {
    qint64 line;
    qint64 column;
    bool hasProgram; // a run that has none is read with an empty one
};

struct Places {
    QList<Place> components;
    QList<RunPlace> runs;
};

void TakeElement(const QXmlStreamReader& reader, bool inParameter, Places* places)
{
    const QStringView name = reader.name();
    const bool isProgram = name == QLatin1String("Testprogram");
    if (name == QLatin1String("TestResultSet"))
        places->runs.append({reader.lineNumber(), reader.columnNumber(), false});
    else if (isProgram && !places->runs.isEmpty())
        places->runs.last().hasProgram = true;
    if (name == QLatin1String("Limits") && !inParameter && !places->components.isEmpty())
        places->components.last().hasLimits = true;
    if (isProgram || name == QLatin1String("TestGroup") || name == QLatin1String("TestStep") ||
        name == QLatin1String("TestMeasurement"))
        places->components.append({reader.lineNumber(), reader.columnNumber(),
                                   reader.attributes().value(QLatin1String("Name")).toString(), false});
}

// The places of all components in the order of the document, which is the order of the model.
Places PlacesOf(const QByteArray& document)
{
    Places places;
    QXmlStreamReader reader(document);
    if (!XmlProlog::MoveToRoot(reader, document))
        return places;
    bool inParameter = false;
    for (; !reader.atEnd(); reader.readNext()) {
        if (reader.name() == QLatin1String("TestParameter"))
            inParameter = reader.isStartElement();
        else if (reader.isStartElement())
            TakeElement(reader, inParameter, &places);
    }
    return places;
}

// Compares every verdict with what it should follow from.
class VerdictCheck {
public:
    VerdictCheck(const Places& places, QList<Finding>* findings)
        : m_places(places)
        , m_findings(findings)
    {
    }

    // \return false when the document has other components than the test, so that no place is certain;
    // nothing was
    //         found then
    bool Check(const UUTTest* test)
    {
        CheckUnit(test);
        const bool fits = m_fits && m_next == m_places.components.size() && m_nextRun == m_places.runs.size();
        if (fits)
            *m_findings += m_found;
        return fits;
    }

private:
    void CheckUnit(const UUTTest* test)
    {
        for (const TestResultSet* const run : test->GetResultSets())
            if (HasProgram())
                CheckPart(run, PartOf(run, run->GetTestProgram().data()));
        for (const QSharedPointer<UUTTest>& item : test->GetUUTTests())
            CheckUnit(item.data());
    }

    // Whether the next run has a program in the document.
    bool HasProgram()
    {
        m_fits = m_fits && m_nextRun < m_places.runs.size();
        return m_fits && m_places.runs.at(m_nextRun++).hasProgram;
    }

    // Four levels deep at most: program, group, step, measurement.
    void CheckPart(const TestResultSet* run, const Part& part)
    {
        m_fits = m_fits && m_next < m_places.components.size() &&
                 m_places.components.at(m_next).name == part.component->GetName();
        if (!m_fits)
            return;
        const Place& place = m_places.components.at(m_next++);
        if (place.hasLimits && part.result && qobject_cast<const TestMeasurement*>(part.component))
            CheckLimits(part, place);
        for (const Part& child : ChildrenOf(run, part, false)) {
            if (child.Failed() && part.Verdict() == ZYN_RESULT_PASSED)
                Add(place, true,
                    Texts::tr("'%1' passed although '%2' failed")
                        .arg(part.component->GetName(), child.component->GetName()));
            CheckPart(run, child);
        }
    }

    void CheckLimits(const Part& part, const Place& place)
    {
        const QSharedPointer<ValidationInterface> validation = part.result->GetValidation();
        if (!validation || (!validation->HasLowerLimit() && !validation->HasUpperLimit()))
            return;
        const bool inside = validation->Validate(part.result->GetValue());
        const QString name = part.component->GetName();
        const QString value = ValueText(part.result);
        const QString limits = LimitsText(validation.data());
        if (part.Verdict() == ZYN_RESULT_PASSED && !inside)
            Add(place, true,
                Texts::tr("'%1' passed although its value is %2 (limits %3)").arg(name, value, limits));
        if (part.Verdict() == ZYN_RESULT_FAILED && inside)
            Add(place, false,
                Texts::tr("'%1' failed although its value is %2 (limits %3)").arg(name, value, limits));
    }

    void Add(const Place& place, bool isError, const QString& what)
    {
        m_found.append({isError, place.line, place.column, what});
    }

    const Places& m_places;
    QList<Finding>* m_findings;
    QList<Finding> m_found;
    qsizetype m_next = 0;
    qsizetype m_nextRun = 0;
    bool m_fits = true;
};

Finding FromImport(const ImportFinding& finding)
{
    return {.isError = finding.isError, .line = finding.line, .column = finding.column, .text = finding.text};
}

} // namespace

QList<Finding> CheckReport(const QString& path)
{
    const PlainFile file(path);
    CImportServiceReport service;
    service.SetInputFileName(file.GetPath());
    UUTTest test(0, QString());
    QString readError; // the import tells it
    const std::optional<QByteArray> bytes = ReportDocument::Read(file.GetPath(), &readError);
    if (!bytes || !service.Import(&test))
        return {{.text = Texts::tr("cannot be read")}};

    QList<Finding> findings;
    if (!file.GetProblem().isEmpty())
        findings.append({.text = file.GetProblem()});
    QSet<qint64> linesOutOfOrder;
    for (const ImportFinding& finding : ReportStructure::Findings(*bytes)) {
        findings.append(FromImport(finding));
        linesOutOfOrder.insert(finding.line);
    }
    // What is out of order is also what the import could not read.
    for (const ImportFinding& finding : service.GetFindings())
        if (!finding.isError || !linesOutOfOrder.contains(finding.line))
            findings.append(FromImport(finding));
    const bool isWhole = std::none_of(findings.begin(), findings.end(),
                                      [](const Finding& finding) { return finding.isError; });
    const Places places = PlacesOf(*bytes);
    for (const RunPlace& run : places.runs)
        if (!run.hasProgram)
            findings.append({.isError = false,
                             .line = run.line,
                             .column = run.column,
                             .text = Texts::tr("the run holds no results: its program had none")});
    if (!VerdictCheck(places, &findings).Check(&test))
        findings.append(
            {.isError = isWhole,
             .text = Texts::tr("verdicts and values could not be compared: the components that were read "
                               "are not those of the file")});
    std::stable_sort(findings.begin(), findings.end(),
                     [](const Finding& left, const Finding& right) { return left.line < right.line; });
    return findings;
}

} // namespace ZYN::Tool
