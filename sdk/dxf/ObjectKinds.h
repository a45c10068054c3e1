// What the objects of one class have in common when they are written.
#pragma once

#include <string>
#include <unordered_map>

class OdDbObject;
class OdRxClass;

namespace oddb
{
struct DxfClass;
}

namespace dxf
{

struct ObjectKind
{
    const OdRxClass* runtimeClass = nullptr;
    const oddb::DxfClass* cls = nullptr;
    std::string name;     ///< in files
    bool isProxy = false; ///< each proxy has a name of its own
    bool isFiled = false; ///< it files itself, or its groups do not say everything
};

/// The kinds of all objects that it was asked for. Several threads may ask at once for kinds that it knows.
class ObjectKinds
{
public:
    /// Stays valid as long as this.
    const ObjectKind& of(const OdDbObject& object);

private:
    std::unordered_map<const OdRxClass*, ObjectKind> m_kinds;
};

} // namespace dxf
