#include "app/viewfactories.h"

#include "views/frmall.h"
#include "views/frmmtv.h"
#include "views/frmrooms.h"
#include "views/frmsched.h"
#include "views/frmweekv.h"

ViewFactories MakeViewFactories() {
    return {{1, [](MainWindow& main) { return std::make_unique<frmsched>(main); }},
            {2, [](MainWindow& main) { return std::make_unique<frmweekv>(main); }},
            {3, [](MainWindow& main) { return std::make_unique<frmmtv>(main); }},
            {4, [](MainWindow& main) { return std::make_unique<frmall>(main); }},
            {5, [](MainWindow& main) { return std::make_unique<frmrooms>(main); }}};
}
