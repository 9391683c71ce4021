#pragma once

#include "ITestPlanReader.h"

#include <QtCore/QBuffer>
#include <QtCore/QFile>
#include <QtCore/QXmlStreamReader>

#include <memory>

namespace ZYN {

class TestPlanData;

/// Reads XML test plans of versions 2.0.0 and 3.0.0; both by the same rules.
///
/// Values of validations and properties come back as texts, attributes with the type they name.
/// Unknown elements are skipped and named in the debug log ("zyn.testplan"). What a small
/// document is made dear with is refused (see `XmlProlog`).
class CTestPlanReaderXML : public ITestPlanReader {
public:
    CTestPlanReaderXML();
    ~CTestPlanReaderXML() override;
    CTestPlanReaderXML(const CTestPlanReaderXML&) = delete;
    CTestPlanReaderXML& operator=(const CTestPlanReaderXML&) = delete;

    bool IsOpened() override;
    bool Read() override;
    bool Open(const QString& fileName) override;
    QString GetErrorText() override;
    TestPlan* TakeTestPlan() override;
    QString GetOpenErrorText() override;

private:
    bool CheckRoot();
    bool ReadRootChild();
    bool ReadValidation();
    bool ReadProperties();
    bool ReadPropertyElements(TestPlanData& data);
    std::unique_ptr<TestPlanData> ReadAttributeSet();
    void ReadAttribute(TestPlanData& data);
    void SkipUnknownElement();
    QString Attribute(const char* name) const;

    std::unique_ptr<QFile> m_file;
    QBuffer m_document; ///< what stands in it
    std::unique_ptr<TestPlan> m_testPlan;
    QXmlStreamReader m_reader;
    bool m_opened = false;
};

} // namespace ZYN
