#pragma once

#include "Texts.h"

#include <ZYNCommon/RunRecorder.h>
#include <ZYNCommon/UUTTest.h>

#include <filesystem>
#include <memory>

namespace ZYN::Python {

/// The recorder of a unit, or of an item of a panel, which lives as long as any of them.
class Recorder {
public:
    explicit Recorder(std::shared_ptr<RunRecorder> recorder, std::shared_ptr<Recorder> panel = nullptr)
        : m_recorder(std::move(recorder))
        , m_panel(std::move(panel))
    {
    }

    /// Throws what the recorder says where it refuses something.
    void Need(bool good) const;
    RunRecorder& Own() const { return *m_recorder; }
    const std::shared_ptr<RunRecorder>& Shared() const { return m_recorder; }
    bool IsItem() const { return bool(m_panel); }
    bool IsEnded() const { return !m_test.isNull(); }

    /// The test, which it ends if nobody did before. Of the whole panel.
    UUTTest& End();

private:
    std::shared_ptr<RunRecorder> m_recorder;
    std::shared_ptr<Recorder> m_panel; ///< null for what is no item
    QSharedPointer<UUTTest> m_test;
};

/// Recorder.
void AddRecorder(py::module_& module);

/// A limit as Python gives it: numbers, a truth value or a text, by the kind of what is measured.
struct GivenLimits {
    py::object lower, upper, expected, nominal;
    QString unit;
    py::object prefix;
    std::string lowerOperator, upperOperator;
    bool integer = false;
};
/// \return none where nothing is given. Throws ValueError for what makes no sense
MeasurementLimits LimitsOf(const QString& name, const GivenLimits& given);
/// A value as the model has it.
QVariant VariantOf(const py::handle& value, bool integer);

/// Writes a test as a new file, whole or not at all. Throws WriteError.
/// \param format empty: by the extension
void Save(UUTTest& test, const std::filesystem::path& path, const QString& format, bool all);
/// Adds a test to a lot file, which is locked meanwhile. Throws WriteError.
/// \return the file that it was written to: another one where the test is not of that lot
std::string Append(UUTTest& test, const std::filesystem::path& path, bool all);

} // namespace ZYN::Python
