#pragma once

#include <ZYNCommon/ZYNCommonGlobal.h>

#include <QtCore/QMap>
#include <QtCore/QObject>
#include <QtCore/QString>

namespace ZYN {

/// A named object of the model with an id and a table of string parameters.
///
/// Base of everything that a test database would store: components, units, product types, lots,
/// fixtures, stations, workspaces.
///
/// Callers ask `GetName`; what formats millions of components asks `TestComponent::GetNameView`, which lends the
/// name; `StoredName` is for classes that derive from this one and tell another name. Not copyable (it is a `QObject`). One object is used by one thread
/// at a time; separate objects may be used in separate threads.
class ZYNCOMMON_EXPORT ManagedObject : public QObject {
    Q_OBJECT
public:
    /// \param id numeric identifier; 0 means none was given
    ManagedObject(long id, const QString& name);
    ~ManagedObject() override;

    long GetID() const { return id; }
    virtual QString GetName() const;
    /// Value of a parameter; empty when there is none of that name.
    virtual QString GetParameter(const QString& key) const;
    /// All parameters in ascending order of their keys.
    virtual QMap<QString, QString> GetParameters() const;
    virtual bool HasParameter(const QString& key) const;
    /// Adds the parameter or replaces its value.
    virtual void SetParameter(const QString& key, const QString& value);
    virtual void SetParameters(const QMap<QString, QString>& parameters);
    /// Whether a parameter of this name may be stored: the name must not be empty.
    virtual bool CanSaveProperty(const QString& key) const;
    /// Whether the object identifies something: it has an id or a name.
    virtual bool IsValid() const;

    void SetName(const QString& name);

    /// Numeric identifier; a plain member because the file formats read it as such.
    long id;

protected:
    const QString& StoredName() const { return m_name; }

private:
    QString m_name;
    QMap<QString, QString> m_parameters;
};

} // namespace ZYN
