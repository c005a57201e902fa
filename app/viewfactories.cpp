#include "app/viewfactories.h"

#include "views/frmsched.h"

ViewFactories MakeViewFactories() {
    return {{1, [](MainWindow& main) { return std::make_unique<frmsched>(main); }}};
}
