#pragma once
// Making sure an opened catalogue's archive folders stand, asking for new ones when they vanished.

namespace vardolin {

class Program;

// True when the catalogue can be used: its writable folder stands, or the user gave a new one.
// A missing read-only folder is asked for too, but giving none doesn't stop the catalogue.
// Catalogues opened from a CD drive or marked as moved to CD are not told apart yet: every
// catalogue goes through the questions here.
bool CheckCatalogueFolders(Program& program);

}  // namespace vardolin
