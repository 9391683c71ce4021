#pragma once

#include <QtCore/QString>

#include <memory>

class QIODevice;
class QXmlStreamWriter;

namespace ZYN {

class Fixture;
class ProductionLot;
class ProductType;
class ProductTypeMultiPanel;
class TestComponent;
class TestGroup;
class TestProgram;
class TestResult;
class TestResultSet;
class TestStep;
class UnitUnderTest;
class UUTTest;
class ValidationInterface;
class ValueDisplay;
class ZYNSession;

/// Writes the elements of the XML report, one operation for each kind of model object, in the order in which
/// they stand in a document. `docs/formats.md` describes every element.
///
/// A property is a child element `Property` with its name in the attribute "Name" and its value as text; one
/// without a value is written all the same, as a start and an end tag. Integers are decimal, booleans 1 and
/// 0; every other text is the model's own. Model objects are borrowed and must not be null.
class UPrivateXMLWriter {
public:
    UPrivateXMLWriter();
    virtual ~UPrivateXMLWriter();
    UPrivateXMLWriter(const UPrivateXMLWriter&) = delete;
    UPrivateXMLWriter& operator=(const UPrivateXMLWriter&) = delete;

    /// Begins a document with its declaration; nothing of an earlier one that was not ended is left over.
    /// \param device open for writing; borrowed until `EndDocument`
    void StartDocument(QIODevice* device);
    /// Closes the innermost element, which is the root in a balanced document, and ends the document.
    void EndDocument();
    /// The stream, for what the operations here do not cover. Texts go through `XmlText`. A new document has
    /// a new stream.
    QXmlStreamWriter& Stream() { return *m_stream; }

    void WriteStartElement(const QString& name);
    /// Closes the innermost open element.
    void WriteEndElement();
    void WriteAttribute(const QString& name, const QString& text);
    void WriteAttribute(const QString& name, qint64 number);
    void WriteProperty(const QString& name, const QString& text);
    void WriteProperty(const QString& name, qint64 number);
    void WriteProperty(const QString& name, bool flag);

    /// "ID", "Name", "Type" on the element that was just started.
    void WriteComponentAttributes(const TestComponent* component);
    /// "Ident", and "SourceLine" where the line is known.
    void WriteComponentProperties(const TestComponent* component);
    void WriteTestProgramProperties(const TestProgram* program);
    void WriteTestGroupProperties(const TestGroup* group);
    void WriteTestStepProperties(const TestStep* step);

    /// The complete element `Result`.
    void WriteResult(const TestResult* result);
    void WriteResultValues(const TestResult* result);
    /// The complete element `Limits`.
    void WriteLimits(const ValidationInterface* validation, const TestComponent* component);
    /// The limits that there are, and the nominal value if there is one.
    void WriteLimitValues(const ValidationInterface* validation);

    // Complete elements of the header.
    void WriteUUTTest(const UUTTest* uutTest);
    void WriteUnitUnderTest(const UnitUnderTest* unit);
    void WriteProductType(const ProductType* productType);
    void WriteMultiPanel(const ProductTypeMultiPanel* multiPanelInfo);
    void WriteProductionLot(const ProductionLot* lot);
    /// Names the version of the test engine that writes, not one that the session knows.
    void WriteTestEnvironment(const ZYNSession* session);
    void WriteFixture(const Fixture* fixture);

    void WriteTestResultSetProperties(const TestResultSet* resultSet);

private:
    /// A property that has further attributes is started, given these, and ended with its text.
    void StartProperty(const QString& name);
    void EndProperty(const QString& text);
    void WriteEnabled(const TestComponent* component);
    void WriteReportInc(const TestComponent* component);
    void WriteLimitUnit(const ValidationInterface* validation);
    /// A number that counts from 1: empty when it is less.
    void WriteCounted(const QString& name, qint64 number);
    void WriteParameters(const ProductType* productType);

    std::unique_ptr<QXmlStreamWriter> m_stream;
};

} // namespace ZYN
