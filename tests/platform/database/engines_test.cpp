#include "contract.h"

namespace {

std::vector<EngineKind> engines() {
    std::vector<EngineKind> kinds{EngineKind::Memory, EngineKind::File, EngineKind::OtherOdbc};
    if (!qEnvironmentVariableIsEmpty("SVSCHEDULER_TEST_DATABASE"))
        kinds.push_back(EngineKind::Server);
    return kinds;
}

const char* nameOf(const testing::TestParamInfo<EngineKind>& tested) {
    switch (tested.param) {
        case EngineKind::Memory:
            return "Memory";
        case EngineKind::File:
            return "File";
        case EngineKind::OtherOdbc:
            return "OtherOdbc";
        case EngineKind::Server:
            break;
    }
    return "Server";
}

}  // namespace

INSTANTIATE_TEST_SUITE_P(Engines, DatabaseContract, testing::ValuesIn(engines()), nameOf);
