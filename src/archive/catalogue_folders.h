#pragma once
// Making sure an opened catalogue's archive folders stand, asking for new ones when they vanished.

namespace vardolin {

class Program;

// True when the catalogue can be used: its writable folder stands, or the user gave a new one.
// A missing read-only folder is asked for too, but giving none doesn't stop the catalogue.
// A catalogue opened from a CD comes here only once it was set up on the hard disk
// (program.cd_catalogue, run before).
bool CheckCatalogueFolders(Program& program);

}  // namespace vardolin
