#pragma once

#include <ZYNCommon/ZYNCommonGlobal.h>

#include <QtCore/QSharedPointer>

namespace ZYN {

class ValidationInterface;

/// Holds the validation that a component is planned with.
class ZYNCOMMON_EXPORT CtrlValidation {
public:
    CtrlValidation();
    ~CtrlValidation();
    /// Null when the component has no limits.
    QSharedPointer<ValidationInterface> GetValidation() const;
    void SetValidation(QSharedPointer<ValidationInterface> validation);

private:
    QSharedPointer<ValidationInterface> m_validation;
};

} // namespace ZYN
