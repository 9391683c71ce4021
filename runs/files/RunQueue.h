#pragma once

#include "runs/ReportRuns.h"

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <map>
#include <mutex>
#include <optional>
#include <vector>

namespace ZYN {

/// Brings the runs of inputs that are read side by side into the order of the inputs, and makes who reads
/// wait for who takes: what waits here is bounded, however many inputs there are.
///
/// Inputs must be begun in their order. Each is put in pieces, of which the last one says so.
class RunQueue {
public:
    struct Piece {
        std::vector<Run> runs = {};
        std::vector<LotBin> bins = {};      ///< of a lot, in the last piece: they stand at its end
        std::optional<RunFault> fault = {}; ///< why there are no more, in the last piece
        bool isLast = false;
    };

    /// \param runs that wait at most, beside one piece of each thread
    explicit RunQueue(std::size_t runs)
        : m_limit(runs)
    {
    }

    /// \return false when nobody takes any more
    bool Put(std::size_t input, Piece piece)
    {
        std::unique_lock lock(m_mutex);
        // The input that is taken next never waits for those behind it.
        m_changed.wait(lock, [&] {
            return m_isClosed || m_waiting < m_limit || (input == m_next && m_pieces[input].empty());
        });
        if (m_isClosed)
            return false;
        m_waiting += piece.runs.size() + piece.bins.size();
        m_pieces[input].push_back(std::move(piece));
        m_changed.notify_all();
        return true;
    }

    /// The next piece in the order of the inputs; waits for it.
    Piece Take()
    {
        std::unique_lock lock(m_mutex);
        m_changed.wait(lock, [&] { return !m_pieces[m_next].empty(); });
        std::deque<Piece>& pieces = m_pieces[m_next];
        Piece piece = std::move(pieces.front());
        pieces.pop_front();
        m_waiting -= piece.runs.size() + piece.bins.size();
        if (piece.isLast)
            m_pieces.erase(m_next++);
        m_changed.notify_all();
        return piece;
    }

    /// Lets nobody wait any more.
    void Close()
    {
        const std::lock_guard lock(m_mutex);
        m_isClosed = true;
        m_changed.notify_all();
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::map<std::size_t, std::deque<Piece>> m_pieces; // by input
    std::size_t m_waiting = 0;
    std::size_t m_next = 0;
    bool m_isClosed = false;
    const std::size_t m_limit;
};

} // namespace ZYN
