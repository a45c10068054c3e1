// What an error carries: its code, its text, its class and the errors that led to it.
#pragma once

#include "OdResult.h"
#include "RxObject.h"

class OdError;
class OdErrorContext;
using OdErrorContextPtr = OdSmartPtr<OdErrorContext>;

/** An OdErrorContext is the content of an OdError, which copies of the error share. A kind of error with data of its
   own derives a class from it and, by convention, names it as the error with "Context" behind. */
class OdErrorContext : public OdRxObject
{
public:
    ODRX_DECLARE_MEMBERS(OdErrorContext);

    ~OdErrorContext() override;

    virtual OdResult code() const = 0;
    /** What went wrong, in words. */
    virtual OdString description() const = 0;
    /** The class of errors that this is the context of, as "OdError". */
    virtual OdString errorClassName() const;

    /** The description and those of all errors behind it, the latest first, each on a line of its own. */
    OdString completeDescription() const;

    /** The error that led to this one, null when there is none. */
    OdErrorContext* getPreviousError() const { return m_previous.get(); }
    /** Makes the error the one that led to this one, in place of the present one. An error that this one led to is
        passed over. */
    void setPreviousError(const OdError& previous);
    /** Makes the error the one that led to the first of the row of errors behind this one. */
    void attachPreviousError(const OdError& previous);

private:
    bool leadsBackTo(const OdErrorContext* other) const;

    OdErrorContextPtr m_previous;
};
