// What the command settles with the system before it does anything.
#pragma once

namespace tavix::engine {

// Standard input, output and error are open, a full disk and a reader that goes away are errors of writing,
// and a fault that ends the program leaves nothing unfinished behind and says so.
void setUpProcess();

// The status that the program ends with by itself; whoever else ends it is told of as a fault.
int endingWith(int status);

}   // namespace tavix::engine
