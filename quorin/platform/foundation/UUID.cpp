#include "quorin/platform/foundation/UUID.hpp"

#include <uuid/uuid.h>

namespace quorin::foundation {

std::string randomUUID() {
    uuid_t uuid;
    uuid_generate_random(uuid);
    char text[UUID_STR_LEN];
    uuid_unparse_upper(uuid, text);
    return text;
}

}  // namespace quorin::foundation
