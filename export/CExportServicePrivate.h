#pragma once

#include <QtCore/QString>

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

    /// Replaces the builder with what `create` makes, which is owned from now on. No exception leaves it:
    /// where no builder could be made there is none.
    /// \return whether there is one now
    template <class Create>
    bool SetBuilder(const Create& create) noexcept
    {
        try {
            Replace(create());
        } catch (...) {
            Replace(nullptr);
        }
        return builder != nullptr;
    }

    /// Runs one export: checks builder and file name, lets the builder open the file, then walks. No
    /// exception leaves it: one that comes out of the walk ends the export with an error text.
    /// \param walk hands the settings to the builder, runs a director and returns its result
    /// \return the walk's result; false with the reason in `errorText` when it could not start
    template <class Walk>
    bool Run(const Walk& walk) noexcept
    {
        m_outputComplete = false;
        m_outputError.clear();
        try {
            return Start() && Finish(walk());
        } catch (...) {
            NoteException();
            return false;
        }
    }

    /// Whether the last export ran to its end and every byte reached the device.
    bool OutputComplete() const { return m_outputComplete; }
    /// Why not, once it could start; empty where nobody knows.
    const QString& OutputError() const { return m_outputError; }

    IExportBuilder* builder = nullptr;
    QString fileName;
    QString errorText;

private:
    void Replace(IExportBuilder* newBuilder);
    bool Start();
    bool Finish(bool walked);
    /// Says in `errorText` what the current exception means.
    void NoteException() noexcept;

    bool m_outputComplete = false;
    QString m_outputError;
};

} // namespace ZYN
