#pragma once

#include "archive/Questions.h"

#include <memory>
#include <string>
#include <tuple>
#include <unordered_map>
#include <vector>

namespace ZYN {

/// What a value was judged by.
struct Judgement {
    std::optional<double> lower, upper;
    std::string lowerOperator, upperOperator;
    bool inverted = false;

    auto Key() const { return std::tie(lower, upper, lowerOperator, upperOperator, inverted); }
};

/// The limits of an archive by their id, read when they are first needed.
class LimitSets {
public:
    explicit LimitSets(const Archive& archive)
        : m_archive(archive)
    {
    }

    /// \return by position; empty without limits; null where they cannot be read, and the archive says why.
    /// Valid as long as this object
    const std::vector<Judgement>* Get(qint64 id);

private:
    const Archive& m_archive;
    std::unordered_map<qint64, std::vector<Judgement>> m_sets{{0, {}}};
};

} // namespace ZYN
