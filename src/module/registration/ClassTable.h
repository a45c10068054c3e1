// The runtime classes of the module.
#pragma once

/** Registers all classes. Throws OdError (eClassAlreadyRegistered) for the first one that is registered already; those
    before it stay registered. */
void RegisterClasses();

/** Withdraws all classes. Throws OdError (eClassNotRegistered) for the first one that is not registered; those after it
    stay registered. */
void DeleteClasses();
