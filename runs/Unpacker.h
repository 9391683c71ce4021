#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

struct archive;

namespace ZYN {

/// Decompresses bzip2, xz and zstd (libarchive). Gzip is left to zlib, which compares its check sums.
class Unpacker {
public:
    /// Gives the next piece of the compressed bytes, which must stand until the next call; empty at the end.
    using Source = std::function<std::string_view()>;

    explicit Unpacker(Source source);
    ~Unpacker();
    Unpacker(const Unpacker&) = delete;
    Unpacker& operator=(const Unpacker&) = delete;

    static constexpr std::size_t MarkSize = 6;
    /// Whether bytes begin like those that are decompressed here.
    static bool Fits(std::string_view head);

    /// \return how many bytes; 0 at the end, and when there is an error
    std::size_t Read(char* to, std::size_t size);
    /// What went wrong; empty when nothing did.
    const std::string& Error() const { return m_error; }

private:
    void Fail();

    Source m_source;
    std::unique_ptr<archive, int (*)(archive*)> m_archive;
    std::string m_error;
};

} // namespace ZYN
