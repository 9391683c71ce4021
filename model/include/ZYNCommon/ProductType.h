#pragma once

#include <ZYNCommon/ManagedObject.h>

#include <QtCore/QList>
#include <QtCore/QSharedPointer>
#include <QtCore/QStringList>

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
    /// Keys of parameters that must not get into a report: the XML format writes a key as the name of an
    /// attribute, as it stands. One that is no such name makes a file that cannot be read, and one from an
    /// enemy elements that nobody measured. Who takes keys from outside asks before the export.
    QStringList GetUnsafeParameterKeys() const;

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
