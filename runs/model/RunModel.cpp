#include "RunModel.h"

#include "export/ModelAdapter.h"
#include "text/DecimalText.h"

#include <ZYNCommon/ProductionLot.h>
#include <ZYNCommon/Station.h>
#include <ZYNCommon/TestComponentFactory.h>
#include <ZYNCommon/TestParameter.h>
#include <ZYNCommon/TestProgram.h>
#include <ZYNCommon/TestResultSet.h>
#include <ZYNCommon/TestStep.h>
#include <ZYNCommon/UUTTest.h>
#include <ZYNCommon/UnitUnderTest.h>
#include <ZYNCommon/ZYNSession.h>
#include <ZYNCommon/ZYNUser.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>
#include <optional>

namespace ZYN {

using namespace Qt::StringLiterals;
using ModelAdapter::ValueKind;

namespace {

constexpr double twoTo63 = 9223372036854775808.0;

QString Text(const std::string& text)
{
    return QString::fromStdString(text);
}

const std::string* TextAt(const Run::Texts& texts, std::size_t position)
{
    const auto at = std::lower_bound(texts.begin(), texts.end(), position,
                                     [](const auto& text, std::size_t p) { return text.first < p; });
    return at != texts.end() && at->first == position ? &at->second : nullptr;
}

/// A number that is a text because a double does not hold it; invalid for another text.
QVariant NumberOfText(const QString& text)
{
    bool ok = false;
    if (const qlonglong number = text.toLongLong(&ok); ok)
        return number;
    if (const qulonglong number = text.toULongLong(&ok); ok)
        return number;
    const double real = DecimalText::ToReal(text, 0, &ok);
    return ok ? QVariant(real) : QVariant();
}

bool IsWhole(double number)
{
    return std::trunc(number) == number && number >= -twoTo63 && number < twoTo63;
}

/// The code of a unit that has only its text.
int UnitCodeOf(const RunComponent& component)
{
    if (component.unitCode != 0 || component.unit.empty())
        return component.unitCode;
    const QString text = Text(component.unit);
    // Testers write "v" or "HZ" as well; "s" and "S" are two units.
    for (const Qt::CaseSensitivity sensitivity : {Qt::CaseSensitive, Qt::CaseInsensitive}) {
        for (const int code : MeasurementUnit::KnownCodes()) {
            const MeasurementUnit unit(code);
            if (text.compare(unit.ToString(), sensitivity) == 0 ||
                text.compare(unit.ToAsciiString(), sensitivity) == 0)
                return code;
        }
    }
    return MeasurementUnit::None;
}

/// A component's ident and name as its objects want them.
struct Naming {
    long id = 0;
    std::optional<QString> ident; ///< one that is no number
    QString name;

    Naming(const std::string& of, const std::string& called)
        : name(Text(called))
    {
        const QString text = Text(of);
        bool isNumber = false;
        const long number = text.toLong(&isNumber);
        if (isNumber && QString::number(number) == text)
            id = number;
        else
            ident = text;
    }
};

template <class Component, class... Argument>
QSharedPointer<Component> Named(const Naming& naming, Argument... arguments)
{
    const auto component = QSharedPointer<Component>::create(naming.id, naming.name, arguments...);
    if (naming.ident)
        component->SetIdentString(*naming.ident);
    return component;
}

/// What all runs of a layout have in common.
struct LayoutNames {
    struct Item : Naming {
        explicit Item(const RunComponent& component)
            : Naming(component.ident, component.name)
            , unit(UnitCodeOf(component))
            , kind(ModelAdapter::KindOfValue(component.dataType))
        {
        }
        int unit;
        ValueKind kind;
    };

    explicit LayoutNames(const RunLayout& layout)
        : program(layout.programIdent, layout.program)
        , version(Text(layout.version))
        , items(layout.components.begin(), layout.components.end())
    {
    }

    Naming program;
    QString version;
    std::vector<Item> items; ///< by position
};

/// What the values of a layout are judged by, by position and as they are needed: results of all runs that
/// are judged alike share it.
using Validations = std::vector<std::optional<QSharedPointer<ValidationInterface>>>;

/// Makes the components of a run and their results.
class ProgramMaker {
public:
    ProgramMaker(const Run& run, const LayoutNames& names, Validations* validations)
        : m_run(run)
        , m_layout(*run.layout)
        , m_names(names)
        , m_validations(*validations)
    {
    }

    std::unique_ptr<TestResultSet> Make();

private:
    void Add(std::size_t position);
    QSharedPointer<TestGroup> GroupOf(int position);
    QSharedPointer<TestStep> StepOf(std::size_t measurement);
    void AddResult(const QSharedPointer<TestComponent>& component, std::size_t position);
    void AddDerivedResult(const QSharedPointer<TestComponent>& component, int code);
    int WorstWithoutParent() const;
    QVariant ValueAt(std::size_t position) const;
    QSharedPointer<ValidationInterface> LimitsAt(std::size_t position) const;

    const Run& m_run;
    const RunLayout& m_layout;
    const LayoutNames& m_names;
    Validations& m_validations;
    QSharedPointer<TestProgram> m_program;
    std::unique_ptr<TestResultSet> m_set;
    std::vector<QSharedPointer<TestComponent>> m_made; ///< by position
    QSharedPointer<TestGroup> m_group;                 ///< of steps that have none
};

std::unique_ptr<TestResultSet> ProgramMaker::Make()
{
    m_program = Named<TestProgram>(m_names.program, 0UL);
    m_program->SetVersion(m_names.version);
    const auto station = QSharedPointer<Station>::create(0L, QString());
    station->SetDescription(Text(m_run.station));
    m_set = std::make_unique<TestResultSet>(m_program, station);
    m_set->SetTestIndex(m_run.testIndex);
    const bool hasProgram =
        !m_layout.program.empty() || !m_layout.programIdent.empty() || !m_layout.components.empty();
    if (!hasProgram)
        return std::move(m_set);
    auto result = std::make_unique<TestResult>(m_program);
    result->SetResult(EN_ZYN_RESULT(m_run.code));
    result->SetDuration(m_run.duration.value_or(0.0));
    result->SetComment(Text(m_run.comment));
    m_program->SetResult(result.get());
    m_set->AddResult(result.release());
    m_made.resize(m_layout.components.size());
    for (std::size_t position = 0; position < m_made.size(); ++position)
        if (m_run.codes[position] != Run::NoCode)
            Add(position);
    return std::move(m_set);
}

void ProgramMaker::Add(std::size_t position)
{
    const RunComponent& made = m_layout.components[position];
    const Naming& naming = m_names.items[position];
    const auto type = EN_ZYN_ADDRESS(made.dataType);
    QSharedPointer<TestComponent> component;
    switch (made.kind) {
    case ComponentKind::Group: {
        const auto group = Named<TestGroup>(naming, m_program.data(), 0U, -1L, ZYN_GROUP_USER, nullptr);
        m_program->AddGroup(group);
        component = group;
        break;
    }
    case ComponentKind::Step: {
        const auto group = GroupOf(made.parent);
        const auto step = Named<TestStep>(naming, group.data(), 0U, -1L, QString());
        group->AddStep(step);
        component = step;
        break;
    }
    case ComponentKind::Parameter: {
        const auto group = GroupOf(made.parent);
        const auto parameter = Named<TestParameter>(naming, type, group.data(), 0U, -1L);
        group->AddParameter(parameter);
        component = parameter;
        break;
    }
    case ComponentKind::Measurement: {
        const auto step = StepOf(position);
        const auto measurement = Named<TestMeasurement>(naming, type, step.data(), 0U, -1L);
        step->AddMeasurement(measurement);
        component = measurement;
        break;
    }
    }
    m_made[position] = component;
    AddResult(component, position);
}

/// The group at a position; where there is none, one that is called like the program.
QSharedPointer<TestGroup> ProgramMaker::GroupOf(int position)
{
    if (position >= 0)
        return m_made[std::size_t(position)].staticCast<TestGroup>();
    if (!m_group) {
        m_group = QSharedPointer<TestGroup>::create(0L, m_names.program.name, m_program.data(), 0U, -1L,
                                                    ZYN_GROUP_USER, nullptr);
        m_program->AddGroup(m_group);
        AddDerivedResult(m_group, WorstWithoutParent());
    }
    return m_group;
}

/// The step of a measurement; where there is none, one of its own, called like it.
QSharedPointer<TestStep> ProgramMaker::StepOf(std::size_t measurement)
{
    const RunComponent& component = m_layout.components[measurement];
    const int position = component.parent;
    const bool isStep =
        position >= 0 && m_layout.components[std::size_t(position)].kind == ComponentKind::Step;
    if (isStep)
        return m_made[std::size_t(position)].staticCast<TestStep>();
    const auto group = GroupOf(position);
    const auto step = Named<TestStep>(m_names.items[measurement], group.data(), 0U, -1L, QString());
    group->AddStep(step);
    AddDerivedResult(step, m_run.codes[measurement]);
    return step;
}

int ProgramMaker::WorstWithoutParent() const
{
    int worst = 0;
    for (std::size_t position = 0; position < m_run.codes.size(); ++position) {
        const int code = m_run.codes[position];
        if (code == Run::NoCode || m_layout.components[position].parent >= 0)
            continue;
        worst = code < 0 || worst < 0 ? std::min(worst, code) : std::max(worst, code);
    }
    return worst;
}

void ProgramMaker::AddDerivedResult(const QSharedPointer<TestComponent>& component, int code)
{
    auto result = std::make_unique<TestResult>(component);
    result->SetResult(EN_ZYN_RESULT(code));
    component->SetResult(result.get());
    m_set->AddResult(result.release());
}

void ProgramMaker::AddResult(const QSharedPointer<TestComponent>& component, std::size_t position)
{
    auto result = std::make_unique<TestResult>(component);
    result->SetResult(EN_ZYN_RESULT(m_run.codes[position]));
    if (!std::isnan(m_run.seconds[position]))
        result->SetDuration(DecimalText::ToReal(DecimalText::FromSingle(m_run.seconds[position])));
    if (const std::string* const comment = TextAt(m_run.comments, position))
        result->SetComment(Text(*comment));
    if (const std::string* const attribute = TextAt(m_run.attributes, position))
        result->SetAttribute(Text(*attribute));
    if (m_layout.components[position].dataType != 0) {
        result->SetValue(ValueAt(position));
        auto& validation = m_validations[position];
        if (!validation)
            validation = LimitsAt(position);
        result->SetValidation(*validation);
    }
    component->SetResult(result.get());
    m_set->AddResult(result.release());
}

QVariant ProgramMaker::ValueAt(std::size_t position) const
{
    const ValueKind kind = m_names.items[position].kind;
    if (const std::string* const text = TextAt(m_run.texts, position)) {
        const QVariant number = kind == ValueKind::Text ? QVariant() : NumberOfText(Text(*text));
        return number.isValid() ? number : QVariant(Text(*text));
    }
    const double number = m_run.values[position];
    if (std::isnan(number))
        return QVariant();
    return kind != ValueKind::Real && IsWhole(number) ? QVariant(qlonglong(number)) : QVariant(number);
}

/// The limits of a value; also what has none takes its unit and scale from them.
QSharedPointer<ValidationInterface> ProgramMaker::LimitsAt(std::size_t position) const
{
    const RunComponent& component = m_layout.components[position];
    const RunLimits* const limits = m_run.limits.get();
    const int unit = m_names.items[position].unit;
    const bool isJudged =
        limits && (!limits->lowerOperator[position].empty() || !limits->upperOperator[position].empty() ||
                   !std::isnan(limits->nominal[position]) || limits->inverted[position]);
    // A measurement has some even without any limit: a report import takes what is left out for those of the
    // one before.
    const bool isMeasurement = component.kind == ComponentKind::Measurement;
    if (!isJudged && !isMeasurement && unit == MeasurementUnit::None && component.factor == 0)
        return nullptr;
    const QByteArray lowerOperator(isJudged ? limits->lowerOperator[position].c_str() : "");
    const QByteArray upperOperator(isJudged ? limits->upperOperator[position].c_str() : "");
    const double nominal = isJudged ? limits->nominal[position] : std::numeric_limits<double>::quiet_NaN();
    const auto limitAt = [&](const std::vector<double>& numbers, const Run::Texts& texts) {
        const std::string* const text = TextAt(texts, position);
        const QVariant exact = text ? NumberOfText(Text(*text)) : QVariant();
        return exact.isValid() ? exact : QVariant(numbers[position]);
    };
    const QVariant lower = isJudged ? limitAt(limits->lower, limits->lowerTexts) : QVariant(0.0);
    const QVariant upper = isJudged ? limitAt(limits->upper, limits->upperTexts) : QVariant(0.0);

    const ValueKind kind = m_names.items[position].kind;
    const std::string* const text = isJudged ? TextAt(limits->lowerTexts, position) : nullptr;
    const bool isText = kind == ValueKind::Text || (text && !NumberOfText(Text(*text)).isValid());
    const auto isWhole = [](const QByteArray& limitOperator, const QVariant& limit) {
        return limitOperator.isEmpty() || limit.typeId() == QMetaType::LongLong || IsWhole(limit.toDouble());
    };
    QSharedPointer<ValidationInterface> made;
    if (isText) {
        made.reset(TestComponentFactory::CreateValidationString(
            unit, lowerOperator, text ? Text(*text) : QString(), -1, -1, -1, -1));
    } else if (kind == ValueKind::Integer && isWhole(lowerOperator, lower) && isWhole(upperOperator, upper) &&
               std::isnan(nominal)) {
        made.reset(TestComponentFactory::CreateValidationInt(unit, lowerOperator, upperOperator, 0, 0, -1, -1,
                                                             -1, -1, -1, -1));
        // Here a limit may have 64 bits.
        if (!lowerOperator.isEmpty())
            made->SetProperty(u"Lower"_s, lower.toLongLong());
        if (!upperOperator.isEmpty())
            made->SetProperty(u"Upper"_s, upper.toLongLong());
    } else {
        made.reset(TestComponentFactory::CreateValidationReal(unit, lowerOperator, upperOperator,
                                                              lower.toDouble(), upper.toDouble(), -1, -1, -1,
                                                              -1, -1, -1, component.factor, nominal));
    }
    if (isJudged && limits->inverted[position])
        ModelAdapter::SetResultInverted(made.get(), true);
    return made;
}

std::unique_ptr<ZYNSession> SessionOf(const Run& run)
{
    auto session = std::make_unique<ZYNSession>();
    const auto workSpace = QSharedPointer<WorkSpace>::create(0L, QString());
    QList<QSharedPointer<ZYNUser>> users;
    users.append(QSharedPointer<ZYNUser>::create(Text(run.operatorName)));
    workSpace->SetUserList(users);
    ModelAdapter::LoginFirstUser(workSpace.data(), QString());
    session->SetMachineName(Text(run.station));
    session->SetWorkSpace(workSpace);
    return session;
}

QSharedPointer<UnitUnderTest> UnitOf(const Run& run)
{
    const std::string& name = run.serial.empty() ? run.ident : run.serial;
    const auto unit = QSharedPointer<UnitUnderTest>::create(0L, Text(name));
    unit->SetSerialNo(Text(run.serial));
    unit->SetIdentString(Text(run.ident));
    unit->SetPanelIndex(run.position.value_or(0));
    unit->SetProductType(QSharedPointer<ProductType>::create(0L, Text(run.product)));
    return unit;
}

} // namespace

struct RunModels::Common {
    std::shared_ptr<const RunLayout> layout;
    LayoutNames names;
    std::shared_ptr<const RunLimits> limits = {};
    Validations validations = {};
};

RunModels::RunModels() = default;
RunModels::~RunModels() = default;

QSharedPointer<UUTTest> RunModels::Make(const Run& run)
{
    if (!m_common || m_common->layout != run.layout)
        m_common.reset(new Common{run.layout, LayoutNames(*run.layout)});
    if (m_common->validations.empty() || m_common->limits != run.limits) {
        m_common->limits = run.limits;
        m_common->validations.assign(run.layout->components.size(), std::nullopt);
    }
    const auto test = QSharedPointer<UUTTest>::create(0L, QString());
    test->SetUnitUnderTest(UnitOf(run));
    if (!run.lot.empty())
        test->SetProductionLot(QSharedPointer<ProductionLot>::create(0L, Text(run.lot)));
    if (!run.station.empty() || !run.operatorName.empty())
        test->SetSession(SessionOf(run).release());
    test->SetResult(EN_ZYN_RESULT(run.code));
    test->SetResultDescription(Text(run.comment));
    test->SetStartTimeString(Text(run.startText));
    test->SetDuration(run.duration.value_or(0.0));
    if (run.start && run.utcOffset && run.duration && std::abs(*run.duration) < 1e9) {
        constexpr int secondsPerMinute = 60;
        const auto end = *run.start + qint64(*run.duration * 1000.0);
        test->SetStopTime(
            QDateTime::fromMSecsSinceEpoch(end, Qt::OffsetFromUTC, *run.utcOffset * secondsPerMinute));
    }
    test->AssignResultSet(ProgramMaker(run, m_common->names, &m_common->validations).Make().release());
    return test;
}

QSharedPointer<UUTTest> ModelOfRun(const Run& run)
{
    return RunModels().Make(run);
}

} // namespace ZYN
