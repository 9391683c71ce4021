#pragma once

#include <QtCore/QString>

namespace ZYN {

/// Answers whether a builder's last document is complete on its device.
class IOutputState {
public:
    virtual ~IOutputState() = default;
    /// True only after a document was ended and every byte of it reached the device.
    virtual bool OutputComplete() const = 0;
    /// Why it is not, as far as the builder knows; else empty.
    virtual QString OutputError() const { return QString(); }
};

} // namespace ZYN
