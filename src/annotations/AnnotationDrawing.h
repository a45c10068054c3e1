// What all stamps of a drawing share: their layer, their text style, the names of their block definitions.
#pragma once

#include "DbBlockTable.h"
#include "DbDatabase.h"
#include "annotations/AnnotationPictures.h"
#include "annotations/AnnotationText.h"

namespace Annotation
{

/** A CAnnotationDrawing is a drawing as one request sees it. It makes what stamps need when it is asked for it first.
    It is used within one transaction. */
class CAnnotationDrawing
{
public:
    explicit CAnnotationDrawing(OdDbDatabase& db) : m_db(db), m_pictures(db), m_idLayerZero(db.getLayerZeroId()) {}
    CAnnotationDrawing(const CAnnotationDrawing&) = delete;
    CAnnotationDrawing& operator=(const CAnnotationDrawing&) = delete;

    OdDbDatabase& Database() { return m_db; }
    CTextMeasure& TextMeasure() { return m_measure; }
    CPictures& Pictures() { return m_pictures; }

    /** The layer of all stamps and the text style of their texts, created when they are missing. */
    OdDbObjectId Layer();
    OdDbObjectId TextStyle();

    /** The layer of what is in block definitions. */
    const OdDbObjectId& LayerZero() const { return m_idLayerZero; }

    /** A new block definition with the first free of the names "Name", "Name_2", "Name_3" and so on, where all names
        before a free one are taken. Returns its id. */
    OdDbObjectId AddDefinition(const OdChar* pszName);

private:
    OdDbDatabase& m_db;
    CTextMeasure m_measure;
    CPictures m_pictures;
    OdDbObjectId m_idLayerZero;
    OdDbObjectId m_idLayer;
    OdDbObjectId m_idTextStyle;
    std::map<std::wstring, int> m_lastNumbers; // of the names given so far
};

/** Erases a block definition unless something refers to it. Returns true when it did. */
bool EraseDefinitionIfUnused(const OdDbObjectId& idDefinition);

} // namespace Annotation
