#include "kinds/TestPlanFile.h"
#include "terminal/Texts.h"

#include <ZYNPersistence/CReadServiceTestPlan.h>

#include <ZYNCommon/TestComponentAttr.h>
#include <ZYNCommon/TestPlan.h>

#include <QtCore/QFile>
#include <QtCore/QRegularExpression>
#include <QtCore/QSet>
#include <QtCore/QXmlStreamReader>

#include <memory>
#include <tuple>

namespace ZYN::Tool {

namespace {

// Looks through a plan that is known to be readable, for what a reader passes over without a word.
class Linter {
public:
    explicit Linter(QIODevice* device)
        : m_reader(device)
    {
    }

    QList<Finding> Run()
    {
        while (!m_reader.atEnd()) {
            m_reader.readNext();
            if (m_reader.isStartElement())
                Enter();
            else if (m_reader.isEndElement())
                m_path.pop_back();
        }
        if (m_reader.hasError())
            Note(Texts::tr("%1 (behind the end of the plan)").arg(m_reader.errorString()));
        return m_findings;
    }

private:
    void Note(const QString& text)
    {
        m_findings.append({.isError = false,
                           .line = m_reader.lineNumber(),
                           .column = m_reader.columnNumber(),
                           .text = text});
    }

    // What may stand in an element.
    static QStringList Expected(const QString& parent)
    {
        if (parent.isEmpty())
            return {QStringLiteral("TestPlan")};
        if (parent == QLatin1String("TestPlan"))
            return {QStringLiteral("Validation"), QStringLiteral("Attributes"), QStringLiteral("Properties")};
        if (parent == QLatin1String("Validation") || parent == QLatin1String("Properties"))
            return {QStringLiteral("Property")};
        return {QStringLiteral("Category"), QStringLiteral("Attribute")};
    }

    void Enter()
    {
        const QString name = m_reader.name().toString();
        const QString parent = m_path.isEmpty() ? QString() : m_path.constLast();
        if (!Expected(parent).contains(name)) {
            Note(Texts::tr("element '%1' is unknown here and is skipped").arg(name));
            m_reader.skipCurrentElement();
            return;
        }
        m_path.append(name);
        if (parent == QLatin1String("TestPlan"))
            CheckIdent(name);
        else if (name == QLatin1String("Attribute"))
            CheckAttribute();
    }

    void CheckIdent(const QString& element)
    {
        const QString ident = m_reader.attributes().value(QLatin1String("Ident")).toString();
        if (ident.isEmpty())
            Note(Texts::tr("'%1' has no ident: it belongs to no component").arg(element));
        const QString key = element + QLatin1Char(' ') + ident;
        if (m_seen.contains(key))
            Note(Texts::tr("there is a '%1' for ident '%2' before; the last one counts").arg(element, ident));
        m_seen.insert(key);
    }

    void CheckAttribute()
    {
        const QString name = m_reader.attributes().value(QLatin1String("Name")).toString();
        const QString type = m_reader.attributes().value(QLatin1String("Type")).toString();
        const QString text = m_reader.readElementText();
        m_path.pop_back(); // the text was read up to the end of the element
        bool fits = true;
        if (type == TestComponentAttr::TypeToString(TestComponentAttr::Integer))
            std::ignore = text.toInt(&fits);
        else if (type == TestComponentAttr::TypeToString(TestComponentAttr::Real))
            std::ignore = text.toDouble(&fits);
        if (!fits)
            Note(Texts::tr("attribute '%1': '%2' is no %3 and counts as 0").arg(name, text, type));
    }

    QXmlStreamReader m_reader;
    QStringList m_path;
    QSet<QString> m_seen;
    QList<Finding> m_findings;
};

} // namespace

Finding FaultOfPlan(const QString& text)
{
    static const QRegularExpression place(QStringLiteral("^(.*)\\t\\D*(\\d+)\\D+(\\d+)$"));
    const QRegularExpressionMatch match = place.match(text);
    if (!match.hasMatch())
        return {.text = text};
    return {.line = match.captured(2).toLongLong(),
            .column = match.captured(3).toLongLong(),
            .text = match.captured(1)};
}

QList<Finding> CheckTestPlan(const QString& path)
{
    QString text;
    const std::unique_ptr<TestPlan> plan(CReadServiceTestPlan().ReadTestPlan(path, &text));
    if (!plan)
        return {FaultOfPlan(text)};
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return {{.text = file.errorString()}};
    return Linter(&file).Run();
}

} // namespace ZYN::Tool
