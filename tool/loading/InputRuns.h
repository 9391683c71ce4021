#pragma once

#include "files/Inputs.h"
#include "terminal/Problem.h"

#include "runs/files/RunStream.h"

namespace ZYN::Tool {

/// Extensions of what holds runs, as searched for in folders.
QStringList RunExtensions();

/// The runs of inputs, in their order, read on all cores.
class InputRuns {
public:
    struct Piece {
        const Input* input = nullptr;
        std::vector<Run> runs = {};
        std::vector<LotBin> bins = {};       ///< of a lot, in its last piece
        std::optional<Problem> problem = {}; ///< why there are no more, in the last piece of an input
        bool isLast = false;
    };

    /// \param inputs must outlive this object
    explicit InputRuns(const QList<Input>& inputs);

    /// Whether every input has had its last piece.
    bool IsAtEnd() const { return m_index == m_inputs.size(); }
    /// The next piece of the input in turn; waits for it.
    Piece Take();

private:
    const QList<Input>& m_inputs;
    RunStream m_stream;
    qsizetype m_index = 0;
};

} // namespace ZYN::Tool
