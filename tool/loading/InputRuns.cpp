#include "loading/InputRuns.h"

#include "kinds/LotFile.h"
#include "terminal/Texts.h"

#include <QtCore/QFile>

namespace ZYN::Tool {

namespace {

Problem ProblemOf(const Input& input, const RunFault& fault)
{
    QString text = QString::fromStdString(fault.text);
    if (fault.offset >= 0)
        text = AtOffset(fault.offset, text);
    if (fault.column > 0)
        text = Texts::tr("column %1: %2").arg(QString::number(fault.column), text);
    return {input.name, fault.line, text, {}};
}

std::vector<std::string> FilesOf(const QList<Input>& inputs)
{
    std::vector<std::string> files;
    for (const Input& input : inputs)
        files.push_back(QFile::encodeName(input.path).toStdString());
    return files;
}

} // namespace

QStringList RunExtensions()
{
    return ReportExtensions() + LotExtensions();
}

InputRuns::InputRuns(const QList<Input>& inputs)
    : m_inputs(inputs)
    , m_stream(FilesOf(inputs))
{
}

InputRuns::Piece InputRuns::Take()
{
    RunStream::Piece taken = m_stream.Take();
    Piece piece{&m_inputs.at(m_index), std::move(taken.runs), std::move(taken.bins), std::nullopt,
                taken.isLast};
    for (Run& run : piece.runs)
        run.source = piece.input->name.toStdString();
    if (taken.fault)
        piece.problem = ProblemOf(*piece.input, *taken.fault);
    m_index += taken.isLast;
    return piece;
}

} // namespace ZYN::Tool
