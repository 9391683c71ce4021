#pragma once

#include "CImportServicePrivate.h"
#include "ReportValues.h"

#include <ZYNPersistence/CImportServiceReport.h>

#include <QtCore/QBuffer>
#include <QtCore/QCoreApplication>
#include <QtCore/QSharedPointer>
#include <QtCore/QXmlStreamReader>

#include <memory>
#include <vector>

namespace ZYN {

class ProductType;
class Station;
class TestComponent;
class TestGroup;
class TestProgram;
class TestResult;
class TestStep;
class ValidationInterface;

/// The state of one parse and the handlers of the elements. A handler begins at the start of its element and
/// returns at its end, or false when the document ends before that. Handlers do not call themselves, so
/// nothing in a document decides how deep the calls are.
class CImportServiceReport_Private : public CImportServicePrivate {
    Q_DECLARE_TR_FUNCTIONS(CImportServiceReport)
public:
    bool Import(UUTTest* uutTest);
    /// Forgets the document and what was read from it; what is carried over to the next import stays.
    void DropDocument();

    bool ReadUUTTest(UUTTest* uutTest);
    bool ReadUnitUnderTest(UUTTest* uutTest);
    bool ReadProductType();
    bool ReadProductionLot(UUTTest* uutTest);
    bool ReadTestEnvironment(UUTTest* uutTest);
    bool ReadTestResults(UUTTest* uutTest);
    bool ReadTestProgram();
    bool ReadTestGroup();
    bool ReadTestStep();
    bool ReadTestMeasurement();
    bool ReadTestLimits();
    bool ReadTestResult();
    bool ReadSubUnitTests(UUTTest* uutTest);
    bool ReadSubUnitTest(UUTTest* uutTest);

    /// The document; the reader takes it in small pieces, where the whole of it decoded would take twice the
    /// file's size.
    QBuffer document;
    std::unique_ptr<QXmlStreamReader> reader;
    QList<ImportFinding> findings;

private:
    /// What the components' elements have in common.
    struct Component {
        int id = 0;
        QString name;
        int type = 0;
        int sourceLine = 0;
        int enabled = 0;
        int reportInc = 0;
    };

    template <class OnProperty, class OnChild>
    bool ReadElement(QLatin1StringView element, const OnProperty& onProperty, const OnChild& onChild);
    template <class OnProperty>
    bool ReadLeaf(QLatin1StringView element, const OnProperty& onProperty);
    template <class Model>
    void SetSwitches(Model* component, const Component& read);

    void ReadDocument(UUTTest* uutTest);
    void CheckRoot();
    void SkipElement(QLatin1StringView parent);
    bool ReadTestResultSet(UUTTest* uutTest);
    void AssignResultSet(UUTTest* uutTest);
    void ReadSplittingMap(const QString& text);
    Component StartComponent();
    bool ReadCommonProperty(QStringView name, QStringView text, Component& component);
    void ReadUnit(QStringView unitCodeText, QStringView factorText);
    /// Creates the component's result, reads it and hands it to the component.
    void ReadResultOf(const QSharedPointer<TestComponent>& component,
                      const QSharedPointer<ValidationInterface>& judgedBy);
    void ReadValue(QStringView text);

    /// \param emptyIsGood no finding for an empty text, which reads as 0 too
    int Integer(QStringView text, bool emptyIsGood = false);
    /// \return seconds
    double Duration(QStringView milliseconds);
    void NoteUnknownProperty(QStringView name, QLatin1StringView element);
    void NoteStrayText(QLatin1StringView element);
    /// Notes something that is wrong with the document.
    void AddFinding(const QString& text) { Add(text, true); }
    /// Notes something that the document says well and the model cannot take over.
    void AddLoss(const QString& text) { Add(text, false); }
    void Add(const QString& text, bool isError);

    // Carried over from one import to the next, as is the limits' notation: its factor and data type are
    // those of the last `Limits`, its unit code begins anew with every measurement.
    ReportValues::Notation m_notation;
    QSharedPointer<ValidationInterface> m_validation;
    QSharedPointer<ProductType> m_productType;
    QSharedPointer<Station> m_station;
    long m_testIndex = 0;
    bool m_inSubUnitTests = false;

    // Of the current document.
    std::vector<std::unique_ptr<TestResult>> m_results;
    QSharedPointer<TestProgram> m_program;
    QSharedPointer<TestGroup> m_group;
    QSharedPointer<TestStep> m_step;
    TestResult* m_result = nullptr;
};

/// Reads up to the end of an element.
/// \param onProperty called with name, text and attributes of each property; false for an unknown one
/// \param onChild called with the name of each other child; reads the child, or answers false for one that is
///        to be skipped
template <class OnProperty, class OnChild>
bool CImportServiceReport_Private::ReadElement(QLatin1StringView element, const OnProperty& onProperty,
                                               const OnChild& onChild)
{
    using namespace Qt::StringLiterals;
    while (!reader->atEnd()) {
        switch (reader->readNext()) {
        case QXmlStreamReader::StartElement:
            if (reader->name() == "Property"_L1) {
                const QXmlStreamAttributes attributes = reader->attributes();
                const QStringView name = attributes.value("Name"_L1);
                reader->readNext();
                const QStringView text = reader->isCharacters() ? reader->text() : QStringView();
                if (!onProperty(name, text, attributes))
                    NoteUnknownProperty(name, element);
            } else if (!onChild(reader->name())) {
                SkipElement(element);
            }
            break;
        case QXmlStreamReader::EndElement:
            if (reader->name() == element)
                return true;
            break;
        case QXmlStreamReader::Characters:
            if (!reader->isWhitespace())
                NoteStrayText(element);
            break;
        default:
            break;
        }
    }
    return false;
}

/// An element that has properties and nothing else.
template <class OnProperty>
bool CImportServiceReport_Private::ReadLeaf(QLatin1StringView element, const OnProperty& onProperty)
{
    return ReadElement(element, onProperty, [](QStringView) { return false; });
}

} // namespace ZYN
