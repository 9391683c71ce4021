#include "runs/Hash.h"
#include "runs/Run.h"

#include <cstring>

namespace ZYN {

void SetHash(RunComponent* component)
{
    Hash hash;
    hash.Add(std::int64_t(component->kind));
    hash.Add(component->identity);
    hash.Add(std::int64_t(component->dataType));
    hash.Add(component->unit);
    std::memcpy(component->hash, hash.Result().data(), sizeof component->hash);
}

} // namespace ZYN
