#include "app/viewfactories.h"

#include "companion/frmfhappts.h"
#include "rooms/frmrooms.h"
#include "views/frmall.h"
#include "views/frmmtv.h"
#include "views/frmsched.h"
#include "views/frmweekv.h"

ViewFactories MakeViewFactories() {
    return {{View::Day, [](MainWindow& main) { return std::make_unique<frmsched>(main); }},
            {View::Week, [](MainWindow& main) { return std::make_unique<frmweekv>(main); }},
            {View::Month, [](MainWindow& main) { return std::make_unique<frmmtv>(main); }},
            {View::AllProviders, [](MainWindow& main) { return std::make_unique<frmall>(main); }},
            {View::Rooms, [](MainWindow& main) { return std::make_unique<frmrooms>(main); }},
            {View::Companion, [](MainWindow& main) { return std::make_unique<frmFHAppts>(main); }}};
}
