#include "ReportContents.h"

#include "FuzzSupport.h"

#include "report/XmlText.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QRegularExpression>
#include <QtCore/QXmlStreamReader>

namespace ZYN::Fuzz {

using namespace Qt::StringLiterals;

namespace {

bool IsComponent(QStringView element)
{
    return element == "Testprogram"_L1 || element == "TestGroup"_L1 || element == "TestStep"_L1 ||
           element == "TestMeasurement"_L1;
}

QString Component(const QString& element, const QString& name)
{
    return element + u": "_s + name;
}

QString JsonComponent(const QJsonObject& holder, const QString& key)
{
    const QString name = holder.value(key).toObject().value("Name"_L1).toString();
    return Component(key.isEmpty() ? u"Testprogram"_s : key, XmlText(name));
}

/// Hexadecimal and binary units have digits, and only numbers of 64 bits are written so.
bool CanBeRead(const QString& text, int unitCode)
{
    static const QRegularExpression hexadecimal(u"^[0-9a-f]{1,16}$"_s);
    static const QRegularExpression binary(u"^[01]{1,64}$"_s);
    return unitCode == 25   ? hexadecimal.match(text).hasMatch()
           : unitCode == 26 ? binary.match(text).hasMatch()
                            : true;
}

QStringList JsonComponents(const QJsonObject& program)
{
    if (program.isEmpty())
        return {};
    QStringList components{JsonComponent(program, QString())};
    for (const QJsonValue& group : program.value("Groups"_L1).toArray()) {
        components += JsonComponent(group.toObject(), u"TestGroup"_s);
        for (const QJsonValue& step : group.toObject().value("Steps"_L1).toArray()) {
            components += JsonComponent(step.toObject(), u"TestStep"_s);
            for (const QJsonValue& value : step.toObject().value("Values"_L1).toArray())
                components += JsonComponent(value.toObject(), u"TestMeasurement"_s);
        }
    }
    return components;
}

} // namespace

QList<ProgramContents> ProgramsOfXml(const QByteArray& report)
{
    QList<ProgramContents> programs;
    int item = -1;
    QXmlStreamReader reader(report);
    while (!reader.atEnd()) {
        reader.readNext();
        if (!reader.isStartElement())
            continue;
        item += reader.name() == "SubUnitTest"_L1;
        if (reader.name() == "Testprogram"_L1)
            programs.append(ProgramContents{item, {}});
        if (IsComponent(reader.name()))
            programs.back().components +=
                Component(reader.name().toString(), reader.attributes().value("Name"_L1).toString());
    }
    Require(!reader.hasError(), "a report is XML", reader.errorString());
    return programs;
}

QList<ProgramContents> ProgramsOfJson(const QByteArray& report)
{
    QJsonParseError error;
    const QJsonObject root = QJsonDocument::fromJson(report, &error).object().value("UUTTest"_L1).toObject();
    Require(error.error == QJsonParseError::NoError && !root.isEmpty(), "a report is JSON",
            error.errorString());
    QList<ProgramContents> programs;
    for (const QJsonValue& program : root.value("Programs"_L1).toArray())
        programs.append({-1, JsonComponents(program.toObject())});
    int item = 0;
    for (const QJsonValue& part : root.value("PanelItems"_L1).toArray()) {
        if (!part.toObject().contains("UUTTest"_L1) && !part.toObject().contains("UnitUnderTest"_L1))
            programs.append({item++, JsonComponents(part.toObject())});
    }
    return programs;
}

QList<ProgramContents> LastOfEachItem(const QList<ProgramContents>& programs, qsizetype items)
{
    QList<ProgramContents> last;
    for (int item = 0; item < items; ++item) {
        last.append(ProgramContents{item, {}});
        for (const ProgramContents& program : programs) {
            if (program.item <= item)
                last.back().components = program.components;
        }
    }
    return last;
}

QStringList Components(const QList<ProgramContents>& programs)
{
    QStringList components;
    for (const ProgramContents& program : programs)
        components += program.components;
    return components;
}

QMap<int, QStringList> NumbersOfXml(const QByteArray& report)
{
    QMap<int, QStringList> numbers;
    int measurement = 0;
    bool isReal = false;
    int unitCode = 0;
    QXmlStreamReader reader(report);
    while (!reader.atEnd()) {
        reader.readNext();
        if (!reader.isStartElement())
            continue;
        const QXmlStreamAttributes attributes = reader.attributes();
        if (reader.name() == "TestParameter"_L1) {
            reader.skipCurrentElement();
            continue;
        }
        if (reader.name() == "TestMeasurement"_L1) {
            ++measurement;
            isReal = false;
        } else if (reader.name() == "Limits"_L1) {
            isReal = attributes.value("Type"_L1) == "8"_L1;
        }
        if (!isReal || reader.name() != "Property"_L1)
            continue;
        const QString name = attributes.value("Name"_L1).toString();
        if (name == "Unit"_L1 && attributes.hasAttribute("Code"_L1))
            unitCode = attributes.value("Code"_L1).toInt();
        const QString text = reader.readElementText();
        if (name == "Value"_L1 && text.isEmpty())
            numbers.remove(measurement);
        else if (name != "Value"_L1 && name != "Lower"_L1 && name != "Upper"_L1)
            continue;
        else if (CanBeRead(text, unitCode))
            numbers[measurement] += name + u' ' + text;
        else
            isReal = numbers.remove(measurement) < 0;
    }
    return numbers;
}

} // namespace ZYN::Fuzz
