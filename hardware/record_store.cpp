#include "hardware/record_store.h"

namespace canvas::store {

bool Recordset::changeFirst(std::initializer_list<Criterion> conditions, std::initializer_list<Criterion> fields) {
    findFirst(conditions);
    if (noMatch()) return false;
    edit();
    for (const Criterion& field : fields) put(field.field, field.value);
    update();
    return true;
}

}  // namespace canvas::store
