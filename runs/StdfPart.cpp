#include "StdfPart.h"

#include "RunValue.h"
#include "StdfKinds.h"

namespace ZYN {

namespace {

constexpr int realNumber = 8; // EN_ZYN_ADDRESS
constexpr int textValue = 9;

} // namespace

void StdfPart::Begin(std::int64_t at)
{
    isOpen = true;
    offset = at;
    last = StdfTests::None;
    values.clear();
    limits.clear();
    comments.clear();
}

std::int16_t StdfPart::WorstFrom(const StdfTests& tests, std::size_t index, bool ofGroup) const
{
    const StdfComponent& first = tests.Component(values[index].component);
    int worst = 0;
    for (; index < values.size(); ++index) {
        const StdfComponent& component = tests.Component(values[index].component);
        if (component.group != first.group || (!ofGroup && component.step != first.step))
            break;
        const int code = values[index].code;
        worst = code < 0 || worst < 0 ? std::min(worst, code) : std::max(worst, code);
    }
    return std::int16_t(worst);
}

void StdfPart::AddAbove(const StdfTests& tests, std::size_t index, RunBuilder& builder) const
{
    const StdfComponent& component = tests.Component(values[index].component);
    const StdfComponent* const before = index == 0 ? nullptr : &tests.Component(values[index - 1].component);
    const bool isNewGroup = !before || before->group != component.group;
    RunItem item;
    item.ident = StdfTests::NoIdent;
    if (isNewGroup) {
        item.kind = ComponentKind::Group;
        item.name = component.group;
        item.code = WorstFrom(tests, index, true);
        builder.Add(item);
    }
    if (isNewGroup || before->step != component.step) {
        item.kind = ComponentKind::Step;
        item.name = component.step;
        item.code = WorstFrom(tests, index, false);
        builder.Add(item);
    }
}

void StdfPart::Build(const StdfTests& tests, RunBuilder& builder) const
{
    auto comment = comments.begin();
    RunValue read;
    for (std::size_t index = 0; index < values.size(); ++index) {
        const StdfValue& value = values[index];
        const StdfComponent& component = tests.Component(value.component);
        const StdfTest& test = tests.Test(component.test);
        if (tests.IsOwn())
            AddAbove(tests, index, builder);
        const RunItemLimits& judgedBy =
            value.ownLimits == StdfTests::None ? test.limits : limits[value.ownLimits];
        RunItem item;
        item.ident = component.ident;
        item.name = component.name;
        item.dataType = test.kind == StdfKinds::Ftr ? textValue : realNumber;
        item.unit = test.unit.text;
        item.unitCode = test.unit.code;
        item.factor = test.unit.factor;
        item.code = value.code;
        if (value.hasNumber) {
            read.SetReal(value.number);
            item.number = read.number;
            item.text = read.text;
        }
        if (!judgedBy.lowerOperator.empty() || !judgedBy.upperOperator.empty())
            item.limits = &judgedBy;
        if (comment != comments.end() && comment->first == index)
            item.comment = (comment++)->second;
        builder.Add(item);
    }
}

} // namespace ZYN
