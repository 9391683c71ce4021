#pragma once

#include <QtCore/QString>

#include <functional>

namespace ZYN {

class IExportBuilder;

/// What the export services have in common: one builder, one file name, one error text, and the way an
/// export runs.
class CExportServicePrivate {
public:
    CExportServicePrivate() = default;
    virtual ~CExportServicePrivate();
    CExportServicePrivate(const CExportServicePrivate&) = delete;
    CExportServicePrivate& operator=(const CExportServicePrivate&) = delete;

    /// Replaces the builder with what `create` makes, which is owned from now on.
    /// \return whether there is one now
    bool SetBuilder(const std::function<IExportBuilder*()>& create) noexcept;

    /// Runs one export: checks builder and file name, lets the builder open the file, then walks. No
    /// exception leaves it: one that comes out of the walk ends the export like a failed start.
    /// \param walk hands the settings to the builder, runs a director and returns its result
    /// \return the walk's result; false with the reason in `errorText` when it could not start
    bool Run(const std::function<bool()>& walk) noexcept;

    /// Whether the last export ran to its end and every byte reached the device.
    bool OutputComplete() const { return outputComplete; }

    IExportBuilder* builder = nullptr;
    QString fileName;
    QString errorText;

private:
    bool Start();
    void NoteException(const char* text) noexcept;

    bool outputComplete = false;
};

} // namespace ZYN
