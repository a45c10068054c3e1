// The commands that create, modify and delete stamps: one row of a table for each, with the function that does the
// work.
#pragma once

#include "annotations/AnnotationProperties.h"
#include "framework/Command.h"

#include <vector>

/** The records of a request. */
using AnnotationRecords = std::vector<Annotation::AnnotationProperties>;

/** An annotation command: its row in the frame's sense, the checks of its frame, and its work on the records. */
struct AnnotationCommandRow
{
    CommandRow command;
    FrameChecks checks;
    void (*work)(CCommandCall& call, AnnotationRecords& records);
};

/** The places of the commands in the table. */
enum EAnnotationCommand
{
    eAnnotationCreate,
    eAnnotationModify,
    eAnnotationDelete,
    eAnnotationCommandCount
};

/** The row of a command. */
const AnnotationCommandRow& AnnotationCommand(EAnnotationCommand eCommand);

/** A CAnnotationCommand is a command of the group of annotations. All share one frame: the context must be one of
    commands on a drawing and its user IO one that asks for what lies in a drawing (else OdError_NotThatKindOfClass),
    with a database (else OdError_InvalidArgument 122 "pDb"); commands with a result need a CFunctionIO (else
    OdError_InvalidValue 417 "pFunctionIO"). The JSON is a parameter, or the user is asked for it; it is read whole
    before anything is changed. When a record fails, the work on those before it is kept. */
class CAnnotationCommand : public CCommand
{
public:
    explicit CAnnotationCommand(const AnnotationCommandRow& row) : CCommand(row.command, row.checks), m_row(row) {}

protected:
    void Work(CCommandCall& call) override;
    bool KeepsWorkBeforeFailure() const override { return true; }

private:
    const AnnotationCommandRow& m_row;
};

/** The class of one command. */
template<EAnnotationCommand Command>
class CAnnotationCommandOf : public CAnnotationCommand
{
public:
    CAnnotationCommandOf() : CAnnotationCommand(AnnotationCommand(Command)) {}
};

using CCommandCreateAnnotation = CAnnotationCommandOf<eAnnotationCreate>;
using CCommandModifyAnnotation = CAnnotationCommandOf<eAnnotationModify>;
using CCommandDeleteAnnotation = CAnnotationCommandOf<eAnnotationDelete>;
