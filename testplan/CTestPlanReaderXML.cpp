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
    return opened;
}

bool CTestPlanReaderXML::Open(const QString& fileName)
{
    opened = false;
    reader.clear();
    file = std::make_unique<QFile>(fileName);
    if (!file->open(QIODevice::ReadOnly | QIODevice::Text))
        return false;
    document.close();
    document.setData(file->readAll());
    document.open(QIODevice::ReadOnly);
    reader.setDevice(&document);
    opened = true;
    return true;
}

QString CTestPlanReaderXML::GetOpenErrorText()
{
    return file && !opened ? file->errorString() : QString();
}

QString CTestPlanReaderXML::GetErrorText()
{
    return QObject::tr("%1\tLine %2, column %3")
        .arg(reader.errorString(), QString::number(reader.lineNumber()),
             QString::number(reader.columnNumber()));
}

TestPlan* CTestPlanReaderXML::TakeTestPlan()
{
    return testPlan.release();
}

bool CTestPlanReaderXML::Read()
{
    if (!opened || !XmlProlog::MoveToRoot(reader, document.data()) || !CheckRoot())
        return false;
    testPlan = std::make_unique<TestPlan>(QFileInfo(file->fileName()));
    while (reader.readNextStartElement()) {
        if (!ReadRootChild())
            return false;
    }
    return !reader.hasError();
}

bool CTestPlanReaderXML::CheckRoot()
{
    if (reader.name() != QLatin1String("TestPlan")) {
        reader.raiseError(QObject::tr("The file is not an TestPlan file"));
        return false;
    }
    const QString version = Attribute("Version");
    if (version != QLatin1String("2.0.0") && version != QLatin1String("3.0.0")) {
        reader.raiseError(QObject::tr("Only TestPlan file versions 2.0.0 and 3.0.0 are supported"));
        return false;
    }
    return true;
}

bool CTestPlanReaderXML::ReadRootChild()
{
    if (reader.name() == QLatin1String("Validation"))
        return ReadValidation();
    if (reader.name() == QLatin1String("Properties"))
        return ReadProperties();
    if (reader.name() != QLatin1String("Attributes")) {
        SkipUnknownElement();
        return true;
    }
    const QString ident = Attribute("Ident");
    std::unique_ptr<TestPlanData> data = ReadAttributeSet();
    if (!data)
        return false;
    testPlan->AddAttributes(ident, data.release());
    return true;
}

bool CTestPlanReaderXML::ReadValidation()
{
    const QString ident = Attribute("Ident");
    auto data = std::make_unique<TestPlanData>();
    data->SetProperty(QStringLiteral("Name"), Attribute("Name"));
    if (!ReadPropertyElements(*data))
        return false;
    testPlan->AddValidation(ident, data.release());
    return true;
}

bool CTestPlanReaderXML::ReadProperties()
{
    const QString ident = Attribute("Ident");
    auto data = std::make_unique<TestPlanData>();
    if (!ReadPropertyElements(*data))
        return false;
    testPlan->AddProperties(ident, data.release());
    return true;
}

bool CTestPlanReaderXML::ReadPropertyElements(TestPlanData& data)
{
    while (reader.readNextStartElement()) {
        if (reader.name() == QLatin1String("Property")) {
            const QString name = Attribute("Name");
            data.SetProperty(name, reader.readElementText());
        } else {
            SkipUnknownElement();
        }
        if (reader.hasError())
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
        if (reader.readNextStartElement()) {
            if (reader.name() == QLatin1String("Attribute"))
                ReadAttribute(*levels.back().data);
            else if (reader.name() == QLatin1String("Category"))
                levels.push_back({Attribute("Name"), std::make_unique<TestPlanData>()});
            else
                SkipUnknownElement();
            continue;
        }
        if (reader.hasError())
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
    const QString text = reader.readElementText();
    if (!reader.hasError())
        data.SetProperty(name, TypedValue(text, type));
}

void CTestPlanReaderXML::SkipUnknownElement()
{
    qCDebug(logTestPlan) << "Unknown element skipped:" << reader.name();
    reader.skipCurrentElement();
}

QString CTestPlanReaderXML::Attribute(const char* name) const
{
    return reader.attributes().value(QLatin1String(name)).toString();
}

} // namespace ZYN
