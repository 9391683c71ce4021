#include "kinds/FirstFailure.h"

#include <ZYNCommon/TestMeasurement.h>
#include <ZYNCommon/TestProgram.h>
#include <ZYNCommon/TestResult.h>
#include <ZYNCommon/TestResultSet.h>
#include <ZYNCommon/TestStep.h>

#include <algorithm>
#include <vector>

namespace ZYN::Tool {

namespace {

struct Node {
    const TestComponent* component;
    std::size_t parent; // its own index for the program
    int depth;
};

using Nodes = std::vector<Node>; // in the order of the program

void Flatten(const TestComponent* component, std::size_t parent, int depth, Nodes* nodes)
{
    const std::size_t index = nodes->size();
    nodes->push_back({component, depth == 0 ? index : parent, depth});
    for (const TestComponent* const child : component->GetChildren())
        Flatten(child, index, depth + 1, nodes);
}

bool SamePath(const Nodes& nodes, std::size_t left, std::size_t right)
{
    while (left != right) {
        const Node& one = nodes[left];
        const Node& other = nodes[right];
        if (one.depth != other.depth || one.component->id != other.component->id ||
            one.component->GetNameView() != other.component->GetNameView())
            return false;
        left = one.parent;
        right = other.parent;
    }
    return true;
}

QString PathOf(const Nodes& nodes, std::size_t index)
{
    QString path = nodes[index].component->GetName();
    for (std::size_t up = nodes[index].parent; nodes[up].depth > 0; up = nodes[up].parent)
        path.prepend(nodes[up].component->GetName() + QLatin1String(" / "));
    int ordinal = 1;
    for (std::size_t before = 0; before < index; ++before)
        ordinal += SamePath(nodes, before, index);
    return ordinal > 1 ? path + QStringLiteral(" #%1").arg(ordinal) : path;
}

} // namespace

FirstFailure FirstFailureOf(const TestResultSet* run)
{
    const QList<TestResult*>& results = run->GetResults();
    const auto program = run->GetTestProgram();
    if (!program || std::none_of(results.begin(), results.end(),
                                 [](const TestResult* result) { return result->GetResult() < 0; }))
        return {};
    Nodes nodes;
    Flatten(program.get(), 0, 0, &nodes);
    const auto failed = [&](const Node& node) {
        const TestResult* const result = run->GetResult(node.component);
        return result && result->GetResult() < 0;
    };
    const auto found = [&](Nodes::const_iterator node) {
        return FirstFailure{node->component, PathOf(nodes, std::size_t(node - nodes.cbegin()))};
    };

    const auto step = std::find_if(nodes.cbegin(), nodes.cend(), [&](const Node& node) {
        return qobject_cast<const TestStep*>(node.component) && run->GetVerdict(node.component) < 0;
    });
    if (step != nodes.cend()) {
        const auto end =
            std::find_if(step + 1, nodes.cend(), [&](const Node& node) { return node.depth <= step->depth; });
        const auto measurement = std::find_if(step, end, [&](const Node& node) {
            return qobject_cast<const TestMeasurement*>(node.component) && failed(node);
        });
        return found(measurement == end ? step : measurement);
    }
    const auto deepest = std::max_element(nodes.cbegin(), nodes.cend(), [&](const Node& a, const Node& b) {
        return (failed(a) ? a.depth : -1) < (failed(b) ? b.depth : -1);
    });
    return deepest != nodes.cend() && failed(*deepest) ? found(deepest) : FirstFailure();
}

} // namespace ZYN::Tool
