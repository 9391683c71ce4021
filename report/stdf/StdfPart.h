#pragma once

#include "StdfRecord.h"

#include <memory>
#include <vector>

namespace ZYN {

/// The records of a part until the part ends. In blocks, as a part may have a million tests; a block is kept
/// for the next part.
class StdfPart {
public:
    bool IsEmpty() const { return m_blocks.empty() || m_blocks.front().used == 0; }

    /// Room for a record, `StdfRecord::longest` bytes; valid until the next call.
    char* Room()
    {
        if (m_blocks.empty() || m_blocks.back().used + StdfRecord::longest > blockSize)
            m_blocks.push_back({std::make_unique_for_overwrite<char[]>(blockSize), 0});
        return m_blocks.back().bytes.get() + m_blocks.back().used;
    }
    /// Adds the record that was put into the room.
    void Add(QByteArrayView record) { m_blocks.back().used += static_cast<size_t>(record.size()); }

    /// Calls `write` with the records, several at once, in order.
    template <class Write>
    void ForEachBlock(Write write) const
    {
        for (const Block& block : m_blocks)
            write(QByteArrayView(block.bytes.get(), static_cast<qsizetype>(block.used)));
    }

    void Clear()
    {
        if (m_blocks.empty())
            return;
        m_blocks.erase(m_blocks.begin() + 1, m_blocks.end());
        m_blocks.front().used = 0;
    }

private:
    struct Block {
        std::unique_ptr<char[]> bytes;
        size_t used = 0;
    };
    /// Large enough for the allocator to keep the memory for the next export.
    static constexpr size_t blockSize = 512 * 1024;

    std::vector<Block> m_blocks;
};

} // namespace ZYN
