#include "commands/Command.h"
#include "questions/GroupArgument.h"
#include "questions/MeasureDetail.h"
#include "questions/MeasureList.h"
#include "questions/Nearest.h"
#include "questions/QuestionOptions.h"
#include "terminal/Terminal.h"
#include "terminal/Texts.h"

#include "archive/questions/AnswerKeys.h"

#include <QtCore/QJsonArray>

namespace ZYN::Tool {

namespace {

struct Arguments {
    QuestionOptions options{"measure"};
    std::vector<std::string> names;
    GroupArgument by;
    bool values = false;
};

QJsonObject PlaceOf(const RunPlace& place)
{
    return {{QStringLiteral("serial"), place.serial},
            {QStringLiteral("lot"), place.lot},
            {QStringLiteral("start"), place.start}};
}

QJsonArray RulesOf(const MeasureRow& row)
{
    QJsonArray rules;
    for (const RuleHit& hit : row.rules)
        rules.append(
            QJsonObject{{QStringLiteral("rule"), hit.rule}, {QStringLiteral("since"), PlaceOf(hit.since)}});
    return rules;
}

QJsonObject ValueOf(const MeasuredValue& value)
{
    QJsonObject object = PlaceOf({value.serial, value.lot, value.start});
    object.insert(QStringLiteral("value"), value.value);
    object.insert(QStringLiteral("verdict"), value.verdict);
    object.insert(QStringLiteral("code"), value.code);
    return object;
}

AnswerRow AnswerOf(const MeasureRow& row)
{
    AnswerRow answer(row.group);
    FillRecord(row, answer);
    QJsonValue drift;
    if (row.drift)
        drift = QJsonObject{{QStringLiteral("kind"), row.drift->kind},
                            {QStringLiteral("p"), row.drift->p},
                            {QStringLiteral("sigmas"), row.drift->sigmas},
                            {QStringLiteral("since"), PlaceOf(row.drift->since)}};
    answer.Add("drift", drift,
               {QStringLiteral("kind"), QStringLiteral("p"), QStringLiteral("sigmas"),
                QStringLiteral("since.serial"), QStringLiteral("since.lot"), QStringLiteral("since.start")});
    answer.Add("rules", RulesOf(row));
    return answer;
}

// One object with its values in a list.
AnswerRow WithValues(const MeasureRow& row)
{
    AnswerRow answer = AnswerOf(row);
    QJsonArray values;
    for (const MeasuredValue& value : row.values)
        values.append(ValueOf(value));
    answer.Add("values", values);
    return answer;
}

// In a CSV file a line is a value.
void AppendValues(const MeasureRow& row, Answer* answer)
{
    for (const MeasuredValue& value : row.values) {
        AnswerRow line(row.group);
        line.Add("ident", row.ident);
        line.Add("path", row.path);
        line.Add("unit", row.unit);
        line.Add("lower", row.lower);
        line.Add("upper", row.upper);
        line.Add("serial", value.serial);
        line.Add("lot", value.lot);
        line.Add("start", value.start);
        line.Add("value", QJsonValue(value.value));
        line.Add("verdict", value.verdict);
        line.Add("code", std::int64_t(value.code));
        answer->push_back(line);
    }
}

bool Fits(const MeasureRow& row, const QString& name)
{
    return FitsMeasurement(name, row.ident, row.path);
}

// Names that no row has: of no measurement, with those that may have been meant, or of one that was not
// chosen.
std::optional<bool> TellUnknown(const Archive& archive, const QStringList& names,
                                const std::vector<MeasureRow>& rows)
{
    bool areKnown = true;
    for (const QString& name : names) {
        if (std::any_of(rows.begin(), rows.end(), [&](const MeasureRow& row) { return Fits(row, name); }))
            continue;
        areKnown = false;
        const std::optional<QStringList> known = AskMeasurementNames(archive);
        if (!known)
            return std::nullopt;
        if (std::any_of(known->begin(), known->end(),
                        [&](const QString& one) { return FitsMeasurement(name, one, one); }))
            PrintProblem({{},
                          0,
                          Texts::tr("no number of measurement '%1' is among the runs that were chosen")
                              .arg(Harmless(name)),
                          Texts::tr("choose more of them")});
        else
            PrintProblem({{},
                          0,
                          Texts::tr("there is no measurement '%1'").arg(Harmless(name)),
                          Suggestion(name, *known)});
    }
    return areKnown;
}

int Run(const Arguments& arguments, const Manners& manners)
{
    RunFilter filter;
    if (const std::optional<int> code = arguments.options.Check(&filter))
        return *code;
    MeasureOptions wanted;
    for (const std::string& name : arguments.names)
        wanted.names.append(QString::fromStdString(name));
    if (const std::optional<int> code = arguments.by.Check(arguments.options, &wanted.by))
        return *code;
    if (!wanted.by.empty() && arguments.values)
        return arguments.options.WrongValue(Texts::tr("--by and --values exclude each other"),
                                            Texts::tr("choose one of them"));
    const bool isDetailed = wanted.by.empty() && (!wanted.names.isEmpty() || arguments.values);
    wanted.values = arguments.values || (isDetailed && arguments.options.IsForPeople());
    return arguments.options.Run(filter, true, manners, [&](const QuestionOptions::Asked& asked) {
        const std::optional<std::vector<MeasureRow>> rows = AskMeasures(asked.archive, asked.filter, wanted);
        const std::optional<bool> areKnown =
            rows ? TellUnknown(asked.archive, wanted.names, *rows) : std::nullopt;
        if (!areKnown)
            return std::optional<QuestionOptions::Reply>();
        QuestionOptions::Reply reply{.empty = AnswerOf({}), .isGood = *areKnown};
        for (const MeasureRow& row : *rows) {
            if (arguments.values && arguments.options.IsForFile())
                AppendValues(row, &reply.answer);
            else
                reply.answer.push_back(arguments.values ? WithValues(row) : AnswerOf(row));
        }
        reply.print = [rows, isDetailed, &arguments] {
            if (!isDetailed)
                PrintMeasureList(*rows);
            else
                for (const MeasureRow& row : *rows)
                    PrintMeasureDetail(row, arguments.values);
        };
        return std::optional(reply);
    });
}

} // namespace

Command MeasureCommand(CommandLine& zyn, const Manners& manners)
{
    CommandLine measure =
        zyn.Subcommand("measure", Texts::tr("Tell mean, sigma, CPK and drift of measurements"));
    const auto arguments = std::make_shared<Arguments>();
    arguments->options.Describe(measure);
    measure
        .Values(
            "--name", arguments->names,
            Texts::tr("Name, ident or path of measurements that are shown with histogram and limits; may be "
                      "given several times"))
        .Named(Texts::tr("NAME"));
    arguments->by.Describe(measure);
    measure.Flag("--values", arguments->values, Texts::tr("With every value"));
    measure.Footer(
        Texts::tr(
            "Without a name all measurements are listed, the lowest CPK first. A drift is a trend or a step\n"
            "that is significant at 1 % after a correction for all measurements of the question, and at\n"
            "least half a sigma; rules (Nelson, 1984) only mark points. With --by there are figures only; "
            "an\n"
            "archive keeps those of days, which are answered without reading the values again."),
        {"zyn measure lot/", "zyn measure line.zya --name \"Supply 3V3\" --station T3",
         "zyn measure line.zya --name \"Supply 3V3\" --by day,station",
         "zyn measure line.zya --name MEAS-7 --values -o values.csv"});
    return {measure, [=, &manners] { return Run(*arguments, manners); }, {}};
}

} // namespace ZYN::Tool
