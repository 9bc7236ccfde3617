#include "frame/Assert.h"

namespace Assert {

void SetHandler(Handler) {}

Handler GetHandler() {
    return nullptr;
}

}  // namespace Assert
