#pragma once

#include <ZYNCommon/ManagedObject.h>

#include <QtCore/QSharedPointer>

namespace ZYN {

class ProductType;

/// One electronic assembly, or one item of a panel.
class ZYNCOMMON_EXPORT UnitUnderTest : public ManagedObject {
    Q_OBJECT
public:
    UnitUnderTest(long id, const QString& name);
    ~UnitUnderTest() override;

    QString GetSerialNo() const;
    /// The ident text, usually what a barcode reader read.
    QString GetIdentString() const;
    /// Place in the panel from 1; 0 for a unit that is no panel item.
    long GetPanelIndex() const;
    /// Null when unknown.
    QSharedPointer<ProductType> GetProductType() const;
    /// Whether the unit can be told apart: by serial number, ident, id or name.
    bool IsValid() const override;

    void SetSerialNo(const QString& serialNo);
    void SetIdentString(const QString& ident);
    void SetPanelIndex(long index);
    void SetProductType(QSharedPointer<ProductType> productType);

private:
    QString m_serialNo;
    QString m_ident;
    long m_panelIndex = 0;
    QSharedPointer<ProductType> m_productType;
};

} // namespace ZYN
