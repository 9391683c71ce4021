#include "questions/QuestionOptions.h"

#include "files/Inputs.h"
#include "questions/AnswerFile.h"
#include "questions/TimeArgument.h"
#include "terminal/Terminal.h"
#include "terminal/Texts.h"

namespace ZYN::Tool {

void QuestionOptions::DescribeRuns(CommandLine& line, bool withSerial)
{
    const QString text = Texts::tr("TEXT");
    line.Inputs(
        "INPUT", m_inputs,
        Texts::tr("Reports, folders, - for standard input, or one archive: a file that ends in .zya or "
                  "postgresql://USER@HOST/DATABASE"));
    line.Value("--product", m_product, Texts::tr("Only runs of this product")).Named(text);
    line.Value("--lot", m_lot, Texts::tr("Only runs of this production lot")).Named(text);
    line.Value("--station", m_station, Texts::tr("Only runs of this station")).Named(text);
    line.Value("--program", m_program, Texts::tr("Only runs of this test program")).Named(text);
    if (withSerial)
        line.Value("--serial", m_serial, Texts::tr("Only runs of the unit with this serial")).Named(text);
    line.Value("--since", m_since,
               Texts::tr("Only runs that started then or later: 2026-11-24, 2026-11-24T13:00"))
        .Named(Texts::tr("TIME"));
    line.Value("--until", m_until, Texts::tr("Only runs that started before; a day means its beginning"))
        .Named(Texts::tr("TIME"));
    line.Flag("--across-lots", m_acrossLots,
              Texts::tr("A serial of one product in several lots is one unit"));
}

void QuestionOptions::Describe(CommandLine& line, bool withSerial)
{
    DescribeRuns(line, withSerial);
    line.Value("-o,--output", m_file, Texts::tr("Write the answer into a file that ends in .csv or .xlsx"))
        .Named(Texts::tr("FILE"));
    line.Flag("--force", m_force, Texts::tr("Replace an existing file"));
    line.Flag("--json", m_json, Texts::tr("For programs: one JSON object a line"));
}

int QuestionOptions::WrongValue(const QString& what, const QString& remedy) const
{
    return WrongUsage(m_name, what, remedy);
}

std::optional<int> QuestionOptions::CheckTime(const char* option, const std::string& text,
                                              std::optional<TimeBound>* bound) const
{
    if (text.empty())
        return std::nullopt;
    return TakeTime(m_name, option, text, &bound->emplace());
}

std::optional<int> QuestionOptions::CheckRuns(RunFilter* filter) const
{
    filter->product = QString::fromStdString(m_product);
    filter->lot = QString::fromStdString(m_lot);
    filter->station = QString::fromStdString(m_station);
    filter->program = QString::fromStdString(m_program);
    filter->serial = QString::fromStdString(m_serial);
    filter->acrossLots = m_acrossLots;
    if (const std::optional<int> code = CheckTime("--since", m_since, &filter->since))
        return code;
    return CheckTime("--until", m_until, &filter->until);
}

std::optional<int> QuestionOptions::Check(RunFilter* filter) const
{
    if (const std::optional<int> code = CheckRuns(filter))
        return code;
    const QString file = PathOf(m_file);
    if (!file.isEmpty() && !IsAnswerFile(file))
        return WrongValue(Texts::tr("%1: the format is not clear").arg(file),
                          Texts::tr("give it a name that ends in .csv or .xlsx"));
    if (!file.isEmpty() && m_json)
        return WrongValue(Texts::tr("-o and --json exclude each other"), Texts::tr("choose one of them"));
    return std::nullopt;
}

std::optional<Problem> QuestionOptions::Tell(const Reply& reply, const Manners& manners) const
{
    if (!m_file.empty())
        return WriteAnswer({m_name, reply.answer, reply.empty}, PathOf(m_file), m_force);
    if (m_json)
        PrintJson(reply.answer);
    else if (!reply.answer.empty())
        reply.print();
    else if (reply.isGood && !manners.quiet)
        PrintNote(Texts::tr("there is nothing to tell about the runs that were chosen"));
    return std::nullopt;
}

int QuestionOptions::Run(const RunFilter& filter, bool needsValues, const Manners& manners,
                         const std::function<std::optional<Reply>(const Asked&)>& ask) const
{
    RunSource source;
    if (!source.Open(m_inputs, m_name, needsValues, manners))
        return source.GetExitCode();
    const Archive& archive = source.GetArchive();
    const std::optional<Reply> reply = ask({archive, filter});
    const std::optional<QStringList> notes = reply ? AskNotes(archive, filter) : std::nullopt;
    if (!reply || !notes) {
        PrintProblem({{}, 0, archive.GetErrorText(), {}});
        return ExitFailed;
    }
    const std::optional<Problem> problem = Tell(*reply, manners);
    FlushOutput(); // before the notes, on a terminal
    Remarks remarks(manners);
    remarks.Add(*notes);
    remarks.Close();
    if (problem)
        PrintProblem(*problem);
    return problem || !reply->isGood ? ExitFailed : source.GetExitCode();
}

} // namespace ZYN::Tool
