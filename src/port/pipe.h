// A pipe.
#ifndef PORT_PIPE_H
#define PORT_PIPE_H

#include "port/descriptor.h"

namespace port {

// Neither end passes to a program that is started.
struct Pipe {
  Descriptor reading;
  Descriptor writing;
};

// Its ends have numbers that are none of the standard ones, which a program may have been
// started without. Throws std::system_error.
Pipe make_pipe();

}  // namespace port

#endif  // PORT_PIPE_H
