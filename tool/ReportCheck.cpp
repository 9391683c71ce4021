#include "ReportCheck.h"

#include "ReportParts.h"
#include "Texts.h"

#include "import/ReportDocument.h"
#include "import/ReportStructure.h"

#include <ZYNCommon/TestComponent.h>
#include <ZYNCommon/TestMeasurement.h>
#include <ZYNCommon/TestProgram.h>
#include <ZYNCommon/TestResult.h>
#include <ZYNCommon/TestResultSet.h>
#include <ZYNCommon/UUTTest.h>
#include <ZYNCommon/ValidationInterface.h>
#include <ZYNPersistence/CImportServiceReport.h>

#include <QtCore/QFile>
#include <QtCore/QSet>
#include <QtCore/QXmlStreamReader>

#include <algorithm>

namespace ZYN::Tool {

namespace {

// Where a program, group, step or measurement begins in the file.
struct Place {
    qint64 line;
    qint64 column;
    bool hasLimits; // a measurement without limits is read with those of the one before it
};

// The places of all components in the order of the document, which is the order of the model.
QList<Place> PlacesOf(const QString& path)
{
    QList<Place> places;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return places;
    QXmlStreamReader reader(&file);
    bool inParameter = false;
    while (!reader.atEnd()) {
        const QXmlStreamReader::TokenType token = reader.readNext();
        const QStringView name = reader.name();
        if (name == QLatin1String("TestParameter"))
            inParameter = token == QXmlStreamReader::StartElement;
        else if (token == QXmlStreamReader::StartElement && name == QLatin1String("Limits") && !inParameter &&
                 !places.isEmpty())
            places.last().hasLimits = true;
        else if (token == QXmlStreamReader::StartElement &&
                 (name == QLatin1String("Testprogram") || name == QLatin1String("TestGroup") ||
                  name == QLatin1String("TestStep") || name == QLatin1String("TestMeasurement")))
            places.append({reader.lineNumber(), reader.columnNumber(), false});
    }
    return places;
}

// Compares every verdict with what it should follow from.
class VerdictCheck {
public:
    VerdictCheck(const QList<Place>& places, QList<Finding>* findings)
        : m_places(places)
        , m_findings(findings)
    {
    }

    void Check(const UUTTest* test)
    {
        for (const TestResultSet* const run : test->GetResultSets())
            if (run->GetTestProgram())
                CheckPart(run, PartOf(run, run->GetTestProgram().data()));
        for (const QSharedPointer<UUTTest>& item : test->GetUUTTests())
            Check(item.data());
    }

private:
    // Four levels deep at most: program, group, step, measurement.
    void CheckPart(const TestResultSet* run, const Part& part)
    {
        if (m_next >= m_places.size())
            return;
        const Place place = m_places.at(m_next++);
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
        m_findings->append({isError, place.line, place.column, what});
    }

    const QList<Place>& m_places;
    QList<Finding>* m_findings;
    qsizetype m_next = 0;
};

Finding FromImport(const ImportFinding& finding)
{
    return {.isError = finding.isError, .line = finding.line, .column = finding.column, .text = finding.text};
}

} // namespace

QList<Finding> CheckReport(const QString& path)
{
    CImportServiceReport service;
    service.SetInputFileName(path);
    UUTTest test(0, QString());
    QString readError; // the import tells it
    const std::optional<QByteArray> bytes = ReportDocument::Read(path, &readError);
    if (!bytes || !service.Import(&test))
        return {{.text = Texts::tr("cannot be read")}};

    QList<Finding> findings;
    QSet<qint64> linesOutOfOrder;
    for (const ImportFinding& fault : ReportStructure::Faults(*bytes)) {
        findings.append(FromImport(fault));
        linesOutOfOrder.insert(fault.line);
    }
    // What is out of order is also what the import could not read.
    for (const ImportFinding& finding : service.GetFindings())
        if (!finding.isError || !linesOutOfOrder.contains(finding.line))
            findings.append(FromImport(finding));
    const auto isError = [](const Finding& finding) { return finding.isError; };
    // Where something was skipped, places and components no longer go together.
    if (std::none_of(findings.begin(), findings.end(), isError))
        VerdictCheck(PlacesOf(path), &findings).Check(&test);
    std::stable_sort(findings.begin(), findings.end(),
                     [](const Finding& left, const Finding& right) { return left.line < right.line; });
    return findings;
}

} // namespace ZYN::Tool
