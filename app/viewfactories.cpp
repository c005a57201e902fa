#include "app/viewfactories.h"

ViewFactories MakeViewFactories() {
    return {};
}
