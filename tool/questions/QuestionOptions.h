#pragma once

#include "loading/RunSource.h"
#include "questions/Answer.h"
#include "terminal/CommandLine.h"
#include "terminal/Manners.h"
#include "terminal/Problem.h"

#include "archive/Questions.h"

#include <functional>

namespace ZYN::Tool {

/// What all questions have in common: their inputs, which runs they are about, and how they are answered.
class QuestionOptions {
public:
    /// \param name of the command
    explicit QuestionOptions(const char* name)
        : m_name(QLatin1String(name))
    {
    }

    /// \param withSerial whether runs are chosen by a serial as well
    void Describe(CommandLine& line, bool withSerial = true);
    /// Inputs and which runs alone: for what is no table.
    void DescribeRuns(CommandLine& line, bool withSerial = true);

    /// Makes sense of what was given. \return the exit code where there is no sense in it; it was told
    std::optional<int> Check(RunFilter* filter) const;
    /// The same of what `DescribeRuns` describes.
    std::optional<int> CheckRuns(RunFilter* filter) const;
    const std::vector<std::string>& GetInputs() const { return m_inputs; }

    /// Where questions are asked; also when the answer is for programs.
    struct Asked {
        const Archive& archive;
        const RunFilter& filter;
    };
    /// An answer for programs, and how it is printed for people.
    struct Reply {
        Answer answer = {};
        AnswerRow empty = {}; ///< tells the columns where there are no rows
        std::function<void()> print = {};
        bool isGood = true; ///< else something was told that makes the command fail
    };
    /// Opens the inputs, asks, prints or writes the answer, tells what is odd. \param ask none where the
    /// archive says why \return the exit code
    int Run(const RunFilter& filter, bool needsValues, const Manners& manners,
            const std::function<std::optional<Reply>(const Asked&)>& ask) const;

    bool IsForFile() const { return !m_file.empty(); }
    bool IsForPeople() const { return m_file.empty() && !m_json; }
    /// For messages of the command.
    int WrongValue(const QString& what, const QString& remedy) const;

private:
    std::optional<int> CheckTime(const char* option, const std::string& text,
                                 std::optional<TimeBound>* bound) const;
    std::optional<Problem> Tell(const Reply& reply, const Manners& manners) const;

    const QString m_name;
    std::vector<std::string> m_inputs;
    std::string m_product, m_lot, m_station, m_program, m_serial, m_since, m_until;
    bool m_acrossLots = false;
    std::string m_file;
    bool m_force = false;
    bool m_json = false;
};

} // namespace ZYN::Tool
