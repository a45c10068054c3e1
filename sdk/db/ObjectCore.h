// The insides of database objects, for the SDK's own sources: stub, owner, groups, listeners, XData.
#pragma once

#include <optional>
#include <string_view>

#include "DbObject.h"
#include "Groups.h"
#include "ObjectExtras.h"
#include "Stub.h"

namespace oddb
{

class ObjectCore
{
public:
    static OdDbStub* stub(const OdDbObject& object) { return object.m_stub; }
    static OdDbStub* owner(const OdDbObject& object) { return object.m_owner; }

    /// The groups of the object, null when it has none.
    static GroupsData* groupsData(const OdDbObject& object) { return object.m_groups; }
    /// Shares the groups of the object.
    static Groups groups(const OdDbObject& object) { return Groups::share(object.m_groups); }
    /// Replaces the groups without a word to the journal: for readers, copies and replays.
    static void putGroups(OdDbObject& object, Groups groups);
    /// Replaces the groups as a change of the object: asserts write access and records the state before.
    static void changeGroups(OdDbObject& object, Groups groups);

    /// Sets the owner without a word to the journal.
    static void putOwner(OdDbObject& object, OdDbStub* owner) { object.m_owner = owner; }

    // ---- What few objects have ---------------------------------------------------------------------------------

    static const ObjectExtras* extras(const OdDbObject& object) { return object.m_extras; }
    /// The extras, made when the object has none.
    static ObjectExtras& makeExtras(OdDbObject& object);
    /// Gives all extras back.
    static void dropExtras(OdDbObject& object);
    /// Gives the extras back when nothing is left in them.
    static void trimExtras(OdDbObject& object);

    static OdDbStub* extensionDictionary(const OdDbObject& object)
    {
        return object.m_extras ? object.m_extras->extensionDictionary : nullptr;
    }
    static void putExtensionDictionary(OdDbObject& object, OdDbStub* dictionary);

    /// Listeners and XData without a word to the journal.
    static bool putReactor(OdDbObject& object, OdDbStub* reactor);
    static bool takeReactor(OdDbObject& object, OdDbStub* reactor);
    static void moveLastReactorBehind(OdDbObject& object, const OdDbStub* behind);
    /// The values of the application, none when the object does not have the application. A file may have an
    /// application without values.
    static std::optional<Groups> xdata(const OdDbObject& object, const OdDbStub* application);
    static void putXData(OdDbObject& object, OdDbStub* application, Groups values);
    static void takeXData(OdDbObject& object, const OdDbStub* application);
    static void moveLastXDataTo(OdDbObject& object, std::size_t place);

    /// Keeps the owner of an object, and of a resident one what else the journal records by itself, while the object
    /// reads the data of another one.
    class KeptCommon
    {
    public:
        explicit KeptCommon(OdDbObject& object)
            : m_object(object), m_owner(object.m_owner),
              m_extras(object.m_stub ? std::exchange(object.m_extras, nullptr) : nullptr)
        {
        }
        KeptCommon(const KeptCommon&) = delete;
        KeptCommon& operator=(const KeptCommon&) = delete;
        ~KeptCommon()
        {
            m_object.m_owner = m_owner;
            if (m_object.m_stub)
                delete std::exchange(m_object.m_extras, m_extras);
        }

    private:
        OdDbObject& m_object;
        OdDbStub* m_owner;
        ObjectExtras* m_extras;
    };

    // ---- Residency ---------------------------------------------------------------------------------------------

    static void attach(OdDbObject& object, OdDbStub& stub, OdDbStub* owner);
    /// Leaves a new resident object open for write in the hands of its maker.
    static void beginNew(OdDbObject& object);
    static void detach(OdDbObject& object);
    /// Gives up the stub's reference to an object whose database ends.
    static void orphan(OdDbObject& object);

    /// Puts another object in the place of the stub's, with its owner and extras.
    static void exchange(OdDbStub& stub, OdDbObject* object);

    /// What OdDbObjectId::safeOpenObject does. Returns eOk with a reference added, or why it cannot be opened.
    static OdResult open(OdDbObject& object, OdDb::OpenMode mode);
    static void close(OdDbObject& object) noexcept;
    static void callSubMadeResident(OdDbObject& object) { object.subMadeResident(); }
    static OdResult callSubErase(OdDbObject& object, bool erasing) { return object.subErase(erasing); }

    /// The bits of OdDbObject::m_state.
    struct State;
    static OdUInt32& state(OdDbObject& object) { return object.m_state; }
    static OdUInt32 state(const OdDbObject& object) { return object.m_state; }
    static OdUInt32 references(const OdDbObject& object) { return object.m_refs; }
};

/// The groups of an object for reading; throws OdError eNotOpenForRead when it is not open.
inline Groups readableGroups(const OdDbObject& object)
{
    object.assertReadEnabled();
    return ObjectCore::groups(object);
}

} // namespace oddb
