#include "db/readers.h"

namespace desk {

void Readers::stopReading() {
    while (!streaming_.empty()) streaming_.extract(streaming_.begin()).value()->keepRest();
}

}  // namespace desk
