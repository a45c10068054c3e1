// The insides of dictionaries, for readers, writers and copies.
#pragma once

#include "DbDictionary.h"
#include "DictionaryEntries.h"
#include "Groups.h"

namespace oddb
{

class DictionaryCore
{
public:
    /// The entries, for reading and for those who restore recorded or saved states.
    static DictionaryEntries& entries(const OdDbDictionary& dictionary) { return *dictionary.m_entries; }

    // Changes that are recorded; the dictionary is resident and open for write.
    static void add(OdDbDictionary& dictionary, DictionaryEntry entry);
    static void replace(OdDbDictionary& dictionary, std::uint32_t number, DictionaryEntry entry);
    static void remove(OdDbDictionary& dictionary, std::uint32_t number);

    /// The groups of the dictionary with its entries, erased ones left out: as files have them.
    static Groups savedGroups(const OdDbDictionary& dictionary);
    /// Takes groups as files have them apart; the dictionary has these entries afterwards.
    static void loadGroups(OdDbDictionary& dictionary, const Groups& groups);

    /// Adds the dictionary to the persistent reactors of one of its objects and makes it the owner, or takes it from
    /// the reactors. Changes that are recorded; the object need not be open.
    static void adoptObject(OdDbDictionary& dictionary, OdDbStub& object);
    static void releaseObject(OdDbDictionary& dictionary, OdDbStub& object);
};

} // namespace oddb
