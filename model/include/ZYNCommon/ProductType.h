#pragma once

#include <ZYNCommon/ManagedObject.h>

#include <QtCore/QList>
#include <QtCore/QSharedPointer>

namespace ZYN {

class ProductTypeMultiPanel;

/// What kind of assembly a unit is. Always has multi-panel information.
class ZYNCOMMON_EXPORT ProductType : public ManagedObject {
    Q_OBJECT
public:
    ProductType(long id, const QString& name);
    ~ProductType() override;

    QString GetArticelCode() const;
    QString GetCustomer() const;
    QString GetDescription() const;
    /// Level in the assembly's cluster from 1; 0 when there is none.
    long GetClusterLevel() const;
    /// Never null.
    QSharedPointer<ProductTypeMultiPanel> GetMultiPanelInfo() const;
    /// Ids of the test programs for this product type, in the order added, each once.
    QList<int> GetTestPrograms() const;
    bool IsValid() const override;

    void SetArticelCode(const QString& code);
    void SetCustomer(const QString& customer);
    void SetDescription(const QString& description);
    void SetClusterLevel(long level);
    void AddTestProgram(int programId);

private:
    QString m_articelCode;
    QString m_customer;
    QString m_description;
    long m_clusterLevel = 0;
    QSharedPointer<ProductTypeMultiPanel> m_multiPanel;
    QList<int> m_testPrograms;
};

} // namespace ZYN
