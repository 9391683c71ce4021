#include "CTestPlanReaderXML.h"

#include "export/ModelAdapter.h"
#include "import/XmlProlog.h"

#include <ZYNCommon/TestPlan.h>
#include <ZYNCommon/TestPlanCategory.h>
#include <ZYNCommon/TestPlanData.h>

#include <QtCore/QFileInfo>
#include <QtCore/QLoggingCategory>
#include <QtCore/QObject>

#include <vector>

namespace ZYN {

namespace {

Q_LOGGING_CATEGORY(logTestPlan, "zyn.testplan")

/// Texts that are no number of that type count as 0.
QVariant TypedValue(const QString& text, const QString& type)
{
    if (type == ModelAdapter::IntegerTypeText())
        return text.toInt();
    if (type == ModelAdapter::RealTypeText())
        return text.toDouble();
    return text;
}

} // namespace

CTestPlanReaderXML::CTestPlanReaderXML() = default;
CTestPlanReaderXML::~CTestPlanReaderXML() = default;

bool CTestPlanReaderXML::IsOpened()
{
    return m_opened;
}

bool CTestPlanReaderXML::Open(const QString& fileName)
{
    m_opened = false;
    m_reader.clear();
    m_file = std::make_unique<QFile>(fileName);
    if (!m_file->open(QIODevice::ReadOnly | QIODevice::Text))
        return false;
    m_document.close();
    m_document.setData(m_file->readAll());
    m_document.open(QIODevice::ReadOnly);
    m_reader.setDevice(&m_document);
    m_opened = true;
    return true;
}

QString CTestPlanReaderXML::GetOpenErrorText()
{
    return m_file && !m_opened ? m_file->errorString() : QString();
}

QString CTestPlanReaderXML::GetErrorText()
{
    return QObject::tr("%1\tLine %2, column %3")
        .arg(m_reader.errorString(), QString::number(m_reader.lineNumber()),
             QString::number(m_reader.columnNumber()));
}

TestPlan* CTestPlanReaderXML::TakeTestPlan()
{
    return m_testPlan.release();
}

bool CTestPlanReaderXML::Read()
{
    if (!m_opened || !XmlProlog::MoveToRoot(m_reader, m_document.data()) || !CheckRoot())
        return false;
    m_testPlan = std::make_unique<TestPlan>(QFileInfo(m_file->fileName()));
    while (m_reader.readNextStartElement()) {
        if (!ReadRootChild())
            return false;
    }
    return !m_reader.hasError();
}

bool CTestPlanReaderXML::CheckRoot()
{
    if (m_reader.name() != QLatin1String("TestPlan")) {
        m_reader.raiseError(QObject::tr("The file is not an TestPlan file"));
        return false;
    }
    const QString version = Attribute("Version");
    if (version != QLatin1String("2.0.0") && version != QLatin1String("3.0.0")) {
        m_reader.raiseError(QObject::tr("Only TestPlan file versions 2.0.0 and 3.0.0 are supported"));
        return false;
    }
    return true;
}

bool CTestPlanReaderXML::ReadRootChild()
{
    if (m_reader.name() == QLatin1String("Validation"))
        return ReadValidation();
    if (m_reader.name() == QLatin1String("Properties"))
        return ReadProperties();
    if (m_reader.name() != QLatin1String("Attributes")) {
        SkipUnknownElement();
        return true;
    }
    const QString ident = Attribute("Ident");
    std::unique_ptr<TestPlanData> data = ReadAttributeSet();
    if (!data)
        return false;
    m_testPlan->AddAttributes(ident, data.release());
    return true;
}

bool CTestPlanReaderXML::ReadValidation()
{
    const QString ident = Attribute("Ident");
    auto data = std::make_unique<TestPlanData>();
    data->SetProperty(QStringLiteral("Name"), Attribute("Name"));
    if (!ReadPropertyElements(*data))
        return false;
    m_testPlan->AddValidation(ident, data.release());
    return true;
}

bool CTestPlanReaderXML::ReadProperties()
{
    const QString ident = Attribute("Ident");
    auto data = std::make_unique<TestPlanData>();
    if (!ReadPropertyElements(*data))
        return false;
    m_testPlan->AddProperties(ident, data.release());
    return true;
}

bool CTestPlanReaderXML::ReadPropertyElements(TestPlanData& data)
{
    while (m_reader.readNextStartElement()) {
        if (m_reader.name() == QLatin1String("Property")) {
            const QString name = Attribute("Name");
            data.SetProperty(name, m_reader.readElementText());
        } else {
            SkipUnknownElement();
        }
        if (m_reader.hasError())
            return false;
    }
    return true;
}

// A stack of its own instead of recursion: the file decides how deep categories are nested.
std::unique_ptr<TestPlanData> CTestPlanReaderXML::ReadAttributeSet()
{
    struct Level {
        QString name;
        std::unique_ptr<TestPlanData> data;
    };
    std::vector<Level> levels;
    levels.push_back({QString(), std::make_unique<TestPlanData>()});
    while (true) {
        if (m_reader.readNextStartElement()) {
            if (m_reader.name() == QLatin1String("Attribute"))
                ReadAttribute(*levels.back().data);
            else if (m_reader.name() == QLatin1String("Category"))
                levels.push_back({Attribute("Name"), std::make_unique<TestPlanData>()});
            else
                SkipUnknownElement();
            continue;
        }
        if (m_reader.hasError())
            return nullptr;
        Level ended = std::move(levels.back());
        levels.pop_back();
        if (levels.empty())
            return std::move(ended.data);
        auto category = std::make_unique<TestPlanCategory>(ended.name);
        category->SetAttributes(ended.data.release());
        levels.back().data->AddCategory(category.release());
    }
}

void CTestPlanReaderXML::ReadAttribute(TestPlanData& data)
{
    const QString name = Attribute("Name");
    const QString type = Attribute("Type");
    const QString text = m_reader.readElementText();
    if (!m_reader.hasError())
        data.SetProperty(name, TypedValue(text, type));
}

void CTestPlanReaderXML::SkipUnknownElement()
{
    qCDebug(logTestPlan) << "Unknown element skipped:" << m_reader.name();
    m_reader.skipCurrentElement();
}

QString CTestPlanReaderXML::Attribute(const char* name) const
{
    return m_reader.attributes().value(QLatin1String(name)).toString();
}

} // namespace ZYN
