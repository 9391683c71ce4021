#pragma once

#include "runs/files/RunQueue.h"

#include <atomic>
#include <string>
#include <thread>
#include <vector>

namespace ZYN {

/// The runs of many files, reports and STDF lots, in the order of the files. They are read on threads of its
/// own; what was read and waits is bounded. Used by one thread.
class RunStream {
public:
    using Piece = RunQueue::Piece;

    /// Begins to read. What a file is, is told by its first bytes.
    /// \param files as the system has their names
    explicit RunStream(std::vector<std::string> files);
    /// Lets go of what was not taken.
    ~RunStream();
    RunStream(const RunStream&) = delete;
    RunStream& operator=(const RunStream&) = delete;

    /// The next runs of the file in turn, some at a time; waits for them. A report comes in one piece. To be
    /// called until each of the files has had its last piece. `Run::source` is the name of the file.
    Piece Take() { return m_queue.Take(); }

private:
    void Read();

    const std::vector<std::string> m_files;
    RunQueue m_queue;
    std::atomic<std::size_t> m_next = 0;
    std::vector<std::jthread> m_readers; ///< of all this: gone first
};

} // namespace ZYN
