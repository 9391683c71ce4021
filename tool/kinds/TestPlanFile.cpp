#include "kinds/TestPlanFile.h"

#include "terminal/Terminal.h"
#include "terminal/Texts.h"

#include <ZYNCommon/TestPlan.h>
#include <ZYNCommon/TestPlanCategory.h>
#include <ZYNCommon/TestPlanData.h>
#include <ZYNPersistence/CReadServiceTestPlan.h>

#include <QtCore/QJsonArray>

#include <functional>
#include <memory>
#include <vector>

namespace ZYN::Tool {

namespace {

// One line of the tree of a set: a category (without value) or a value.
using DataSink = std::function<void(int depth, const QString& name, const QVariant& value)>;

// Goes through a set of values in the order of the file. The file decides how deep categories are nested: a
// stack of its own instead of recursion.
void Walk(const TestPlanData* root, const DataSink& sink)
{
    struct Level {
        QList<TestPlanCategory*> categories;
        qsizetype next = 0;
    };
    std::vector<Level> levels;
    const auto enter = [&](const TestPlanData* data) {
        const QStringList names = data->GetPropertyNames();
        for (const QString& name : names)
            sink(int(levels.size()), name, data->GetProperty(name));
        levels.push_back({data->GetCategories()});
    };
    enter(root);
    while (!levels.empty()) {
        Level& level = levels.back();
        if (level.next == level.categories.size()) {
            levels.pop_back();
            continue;
        }
        const TestPlanCategory* const category = level.categories.at(level.next++);
        sink(int(levels.size()) - 1, category->GetName(), QVariant());
        enter(category->GetAttributes());
    }
}

struct Set {
    const char* title; // translated for people
    const TestPlanData* data;
};

// What a plan has for a component; null where it has nothing.
std::array<Set, 3> SetsOf(const TestPlan& plan, const QString& ident)
{
    return {{{QT_TRANSLATE_NOOP("zyn", "validation"), plan.GetValidation(ident)},
             {QT_TRANSLATE_NOOP("zyn", "attributes"), plan.GetAttributes(ident)},
             {QT_TRANSLATE_NOOP("zyn", "switches"), plan.GetProperties(ident)}}};
}

void PrintSet(const Set& set)
{
    Print(QStringLiteral("  ") + Paint(Texts::tr(set.title), Style::Dim) + QLatin1Char('\n'));
    Walk(set.data, [](int depth, const QString& name, const QVariant& value) {
        // A line that is mostly blanks helps nobody.
        const QString indent(2 * qMin(depth, 20) + 4, QLatin1Char(' '));
        const QString text =
            value.isValid() ? QStringLiteral(" = ") + Harmless(value.toString()) : QStringLiteral("/");
        Print(indent + Harmless(name) + text + QLatin1Char('\n'));
    });
}

// Categories appear as a path in front of the name: JSON readers limit how deep they follow.
QJsonArray ToJson(const TestPlanData* data)
{
    QJsonArray values;
    QStringList path;
    Walk(data, [&](int depth, const QString& name, const QVariant& value) {
        path.resize(depth);
        if (!value.isValid())
            path += name;
        else
            values.append(QJsonObject{{QStringLiteral("path"), QJsonArray::fromStringList(path)},
                                      {QStringLiteral("name"), name},
                                      {QStringLiteral("value"), QJsonValue::fromVariant(value)}});
    });
    return values;
}

std::unique_ptr<TestPlan> ReadPlan(const QString& path, const QString& name, std::optional<Problem>* problem)
{
    QString text;
    std::unique_ptr<TestPlan> plan(CReadServiceTestPlan().ReadTestPlan(path, &text));
    if (!plan) {
        const Finding fault = FaultOfPlan(text);
        *problem = Problem{name, fault.line, fault.text, {}};
    }
    return plan;
}

} // namespace

bool LooksLikeTestPlan(const QByteArray& head)
{
    return head.contains("<TestPlan");
}

std::optional<Problem> ShowTestPlan(const QString& path, const QString& name, const ShowOptions& options)
{
    std::optional<Problem> problem;
    const auto plan = ReadPlan(path, name, &problem);
    if (!plan)
        return problem;
    if (options.failedOnly)
        return std::nullopt; // nothing in it was tested
    const QStringList idents = plan->GetKeys();
    PrintTitle(name, Texts::tr("test plan, %n components", nullptr, int(idents.size())));
    for (const QString& ident : idents) {
        const TestPlanData* const validation = plan->GetValidation(ident);
        const QString title =
            validation ? QLatin1Char(' ') + validation->GetProperty(QStringLiteral("Name")).toString()
                       : QString();
        Print(Paint(Harmless(ident), Style::Bold) + Harmless(title) + QLatin1Char('\n'));
        for (const Set& set : SetsOf(*plan, ident)) {
            if (set.data)
                PrintSet(set);
        }
    }
    return std::nullopt;
}

std::optional<Problem> TestPlanToJson(const QString& path, const QString& name, const ShowOptions&,
                                      QJsonObject* object)
{
    std::optional<Problem> problem;
    const auto plan = ReadPlan(path, name, &problem);
    if (!plan)
        return problem;
    QJsonArray components;
    const QStringList idents = plan->GetKeys();
    for (const QString& ident : idents) {
        QJsonObject component{{QStringLiteral("ident"), ident}};
        for (const Set& set : SetsOf(*plan, ident)) {
            if (set.data)
                component.insert(QLatin1String(set.title), ToJson(set.data));
        }
        components.append(component);
    }
    object->insert(QStringLiteral("kind"), QStringLiteral("test plan"));
    object->insert(QStringLiteral("components"), components);
    return std::nullopt;
}

} // namespace ZYN::Tool
