// Forgetting what the module keeps for a drawing when that drawing is closed.
#pragma once

class OdDbDatabase;

/** Makes sure that the arbitrary data of a drawing are removed when it leaves memory, so that a new drawing at the same
    address inherits nothing. Once for each drawing is enough; more do no harm. */
void WatchForClosing(OdDbDatabase* pDb);

/** Ends the watch over all drawings. */
void StopWatchingForClosing();
