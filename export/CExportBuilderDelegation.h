#pragma once

#include "IExportBuilder.h"

namespace ZYN {

/// A builder that passes every operation on to another builder, which it owns. `OpenFile` stays to the
/// derived builder: only that knows where the file comes from.
class CExportBuilderDelegation : public IExportBuilder {
public:
    /// \param builder the target; owned from now on, must not be null
    explicit CExportBuilderDelegation(IExportBuilder* builder);
    ~CExportBuilderDelegation() override;
    CExportBuilderDelegation(const CExportBuilderDelegation&) = delete;
    CExportBuilderDelegation& operator=(const CExportBuilderDelegation&) = delete;

    void SetProperty(const QString& key, const QString& value) override;
    void SetDevice(QIODevice* device) override;
    QIODevice* GetDevice() override;
    void SetUseScaledData(bool flag) override;
    bool GetUseScaledData() override;
    bool Open() override;
    bool Close() override;
    bool IsOpened() override;

#define ZYN_SLOT_NONE(name)                                                                                  \
    bool name() override                                                                                     \
    {                                                                                                        \
        return m_target->name();                                                                             \
    }
#define ZYN_SLOT_ONE(name, Model)                                                                            \
    bool name(Model* object) override                                                                        \
    {                                                                                                        \
        return m_target->name(object);                                                                       \
    }
#define ZYN_SLOT_RESULT(name, Component)                                                                     \
    bool name(Component* component, TestResult* result) override                                             \
    {                                                                                                        \
        return m_target->name(component, result);                                                            \
    }
    ZYN_EXPORT_BUILDER_SLOTS(ZYN_SLOT_NONE, ZYN_SLOT_ONE, ZYN_SLOT_RESULT)
#undef ZYN_SLOT_NONE
#undef ZYN_SLOT_ONE
#undef ZYN_SLOT_RESULT

protected:
    IExportBuilder* const m_target;
};

} // namespace ZYN
