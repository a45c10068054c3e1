// Looking up names that are spelt in another way.
#include "SpeltNames.h"

#include "DatabaseImpl.h"
#include "ObjectCore.h"

namespace oddb
{

namespace
{

constexpr int kApplicationDataCode = 102;

// Calls visit(group, record) for every group of the class that names a record, outside of application data; the record
// is null for any other group.
template<class Visit>
void visitNames(const OdDbDatabase& database, const DxfClass& cls, const Groups& groups, Visit visit)
{
    const DxfSubclass* part = nullptr;
    bool inApplicationData = false;
    for (const GroupView& group : groups)
    {
        if (group.beginsSection())
            part = cls.subclass(group.text());
        else if (group.code() == kApplicationDataCode)
            inApplicationData = group.text().starts_with('{');
        const DxfRow* row =
            part && !inApplicationData && group.type() == GroupType::Text ? part->row(group.code()) : nullptr;
        const bool isName = row && row->kind == DxfKind::Name && !group.text().empty();
        visit(group, isName ? findSymbol(database, row->table, group.text()) : nullptr);
    }
}

} // namespace

std::vector<OdDbStub*> speltRecords(const OdDbDatabase& database, const DxfClass& cls, const Groups& groups)
{
    std::vector<OdDbStub*> found;
    visitNames(database, cls, groups,
               [&](const GroupView&, OdDbStub* record)
               {
                   if (record)
                       found.push_back(record);
               });
    return found;
}

Groups withReferences(const OdDbDatabase& database, const DxfClass& cls, const Groups& groups,
                      const std::function<bool(const OdDbStub&)>& accept)
{
    GroupsBuilder builder;
    bool changed = false;
    visitNames(database, cls, groups,
               [&](const GroupView& group, OdDbStub* record)
               {
                   const bool refers = record && accept(*record);
                   changed = changed || refers;
                   refers ? builder.name(group.code(), record) : builder.append(group);
               });
    return changed ? builder.build() : groups;
}

void keepNamesOf(OdDbStub& record)
{
    DatabaseImpl& impl = record.database->impl();
    if (!impl.hasSpeltNames)
        return;
    impl.stubs.visit(
        [&](OdDbStub& stub)
        {
            const DxfClass* cls = stub.object && stub.object->keepsGroups() ? dxfClassOf(*stub.object) : nullptr;
            if (!cls)
                return;
            const Groups present = ObjectCore::groups(*stub.object);
            Groups wanted = withReferences(*record.database, *cls, present,
                                           [&](const OdDbStub& named) { return &named == &record; });
            if (wanted.data() == present.data())
                return;
            impl.journal.recordState(*stub.object);
            ObjectCore::putGroups(*stub.object, std::move(wanted));
        });
}

} // namespace oddb
