// Deletes labels one after the other; what is wrong with one of them ends the whole.
#include "labels/LabelDeletion.h"

#include "ModuleErrors.h"
#include "labels/LabelChoice.h"
#include "labels/Labels.h"

static void Require(bool bHolds, OdResult eCode, const OdChar* pszName)
{
    if (!bHolds)
        throw OdError_InvalidValue(eCode, pszName, L"CCommandBSystemLabelDelete::Delete");
}

// Erased labels are opened too, to be left alone rather than taken for missing.
static CBSystemLabelPtr OpenForDeletion(const OdDbObjectId& id)
{
    const OdDbObjectPtr pObject = id.openObject(OdDb::kForRead, true);
    Require(!pObject.isNull(), eNullObjectPointer, L"pObject");
    Require(pObject->isA()->isDerivedFrom(CBSystemLabel::desc()), eNotThatKindOfClass, L"pObject");
    CBSystemLabelPtr pLabel = CBSystemLabel::cast(pObject.get());
    Require(!pLabel.isNull(), eNullObjectPointer, L"pLabel");
    return pLabel;
}

static void Delete(OdDbDictionary& dictionary, const OdDbObjectId& id)
{
    if (!id.isValid())
        return;
    const CBSystemLabelPtr pLabel = OpenForDeletion(id);
    if (pLabel->isErased())
        return;
    if (dictionary.has(id))
    {
        dictionary.upgradeOpen();
        dictionary.remove(id);
        dictionary.downgradeOpen();
    }
    pLabel->upgradeOpen();
    pLabel->erase(true);
    pLabel->downgradeOpen();
}

void DeleteLabels(CCommandCall& call, const LabelParameters& parameters)
{
    const OdDbObjectIdArray ids = GivenOrChosenLabels(call, parameters);
    const OdDbDictionaryPtr pDictionary = CallForDictionary(call);
    if (!pDictionary)
        throw OdError_InvalidValue(eNullObjectPointer, L"pDictionary", call.FunctionName());
    for (const OdDbObjectId& id : ids)
        Delete(*pDictionary, id);
}
