// What a file's disk has room for, and what it holds.
#ifndef PORT_DISK_H
#define PORT_DISK_H

#include <cstddef>
#include <system_error>

#include "port/descriptor.h"

namespace port {

// Has the system set aside room for `size` bytes of a file, whose length and bytes stay.
// Returns the failure, if any; that it cannot be asked for it is none.
std::error_code claim_room(const Descriptor& file, std::size_t size);

// Waits until the disk holds the file's bytes and its length: some failures to write show only
// then. Returns the failure, if any; that there is nothing to be waited for is none.
std::error_code store(const Descriptor& file);

}  // namespace port

#endif  // PORT_DISK_H
