#pragma once
// What a run that was killed (or lost its machine) left in the home and the store, cleared by the
// next run that may change them: it holds the home's lock, so no other run is at work.

namespace vardolin {

class Program;

// Finishes or undoes the work noted as unfinished (UnfinishedWork) and removes the home's work
// folders, each named in the log. Called at start-up and at the start of every command that
// changes the home. The number of leftovers cleared.
int ClearLeftovers(Program& program);

}  // namespace vardolin
