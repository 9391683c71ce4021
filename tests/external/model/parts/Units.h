#pragma once

#include "Components.h"

#include <QtCore/QStringList>

/// \file
/// What was tested, where and by whom.

namespace ZYN {

class ProductTypeMultiPanel {
public:
    bool IsMultiPanel() const { return multiPanel; }
    bool HasSplitting() const { return splitting; }
    long GetPanelItems() const { return items; }
    QString GetSplittingString() const { return splittingText; }
    void SetMultiPanel(bool on) { multiPanel = on; }
    void SetSplitting(bool on) { splitting = on; }
    void SetPanelItems(long count) { items = count; }
    void SetSplittingString(const QString& text) { splittingText = text; }

private:
    bool multiPanel = false;
    bool splitting = false;
    long items = 0;
    QString splittingText;
};

class ProductType : public ManagedObject {
    Q_OBJECT
public:
    using ManagedObject::ManagedObject;
    QString GetArticelCode() const { return articel; }
    QString GetCustomer() const { return customer; }
    QString GetDescription() const { return description; }
    long GetClusterLevel() const { return level; }
    QSharedPointer<ProductTypeMultiPanel> GetMultiPanelInfo() const { return multiPanel; }
    void SetArticelCode(const QString& text) { articel = text; }
    void SetCustomer(const QString& text) { customer = text; }
    void SetDescription(const QString& text) { description = text; }
    void SetClusterLevel(long value) { level = value; }
    void AddTestProgram(int) {}

private:
    QString articel;
    QString customer;
    QString description;
    long level = 0;
    QSharedPointer<ProductTypeMultiPanel> multiPanel = QSharedPointer<ProductTypeMultiPanel>::create();
};

class ProductionLot : public ManagedObject {
    Q_OBJECT
public:
    using ManagedObject::ManagedObject;
    QString GetOrderCode() const { return order; }
    void SetOrderCode(const QString& code) { order = code; }

private:
    QString order;
};

class UnitUnderTest : public ManagedObject {
    Q_OBJECT
public:
    using ManagedObject::ManagedObject;
    QString GetSerialNo() const { return serial; }
    QString GetIdentString() const { return ident; }
    long GetPanelIndex() const { return index; }
    QSharedPointer<ProductType> GetProductType() const { return type; }
    void SetSerialNo(const QString& text) { serial = text; }
    void SetIdentString(const QString& text) { ident = text; }
    void SetPanelIndex(long value) { index = value; }
    void SetProductType(QSharedPointer<ProductType> value) { type = value; }

private:
    QString serial;
    QString ident;
    long index = 0;
    QSharedPointer<ProductType> type;
};

class FixtureBase : public ManagedObject {
public:
    using ManagedObject::ManagedObject;
    QString GetIdent() const { return {}; }
    QString GetDescription() const { return {}; }
};

class Fixture : public FixtureBase {
public:
    using FixtureBase::FixtureBase;
    QString GetSerialNo() const { return {}; }
    QString GetFixtureTypeName() const { return {}; }
};

class Station : public ManagedObject {
    Q_OBJECT
public:
    using ManagedObject::ManagedObject;
    void SetDescription(const QString& text) { description = text; }
    QString description;
};

class ZYNUser : public ManagedObject {
    Q_OBJECT
public:
    explicit ZYNUser(const QString& name)
        : ManagedObject(0, name)
    {
    }
    void SetPassword(const QString&) {}
};

class WorkSpace : public ManagedObject {
    Q_OBJECT
public:
    enum LOGIN_ERROR : int { Welcome, Unknown };
    using ManagedObject::ManagedObject;
    virtual QSharedPointer<ZYNUser> GetCurrentUser() const { return user; }
    virtual QString GetCurrentUserName() const { return user ? user->GetName() : QString(); }
    virtual QList<QSharedPointer<ZYNUser>> GetUserList() const { return users; }
    virtual void SetUserList(const QList<QSharedPointer<ZYNUser>>& list) { users = list; }
    virtual QMap<int, QString> GetUserNames() const { return {}; }
    virtual LOGIN_ERROR Login(int index, const QString&)
    {
        user = users.value(index);
        return user ? Welcome : Unknown;
    }

private:
    QList<QSharedPointer<ZYNUser>> users;
    QSharedPointer<ZYNUser> user;
};

class ZYNSession : public QObject {
    Q_OBJECT
public:
    ZYNSession() = default;
    QString GetMachineName() const { return machine; }
    QString GetWorkspaceName() const { return workSpace ? workSpace->GetName() : QString(); }
    QString GetCurrentUserName() const { return workSpace ? workSpace->GetCurrentUserName() : QString(); }
    void SetMachineName(const QString& name) { machine = name; }
    void SetWorkSpace(QSharedPointer<WorkSpace> value) { workSpace = value; }

private:
    QString machine;
    QSharedPointer<WorkSpace> workSpace;
};

} // namespace ZYN
