// The files that claims are made of.
#ifndef REGISTRY_CLAIMED_FILES_H
#define REGISTRY_CLAIMED_FILES_H

#include <vector>

#include "registry/claim_facts.h"
#include "registry/repository.h"
#include "registry_docs/registry_docs.h"

namespace registry {

// Has the files hold what the repository's claims say of them: adds parts to those that are in
// the table, and the others to its end. The parts borrow the catalogs. A claim that is found
// in none of its files is a fault of the first. Claims of servers of which nothing is known
// are passed over.
//
// Reads files of claims that are made of several. Throws InputError for a pattern that no file
// fits, for a file that is generated as a whole, and for a group that there is not; FileError
// or DecodeError for a file that cannot be read.
void add_claims(const Repository& repository, ClaimFacts::Catalogs catalogs,
                std::vector<registry_docs::GeneratedFile>& files);

}  // namespace registry

#endif  // REGISTRY_CLAIMED_FILES_H
