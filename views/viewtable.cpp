#include "views/viewtable.h"

#include <algorithm>

namespace {

template <typename Matches>
const ViewEntry* find(Matches matches) {
    const auto* found = std::find_if(ViewTable.begin(), ViewTable.end(), matches);
    return found == ViewTable.end() ? nullptr : found;
}

}  // namespace

const ViewEntry* FindView(int currentView) {
    return find([currentView](const ViewEntry& entry) { return entry.currentView == currentView; });
}

const ViewEntry* FindViewByKey(const QString& taskPaneKey) {
    return find([&](const ViewEntry& entry) { return taskPaneKey == QLatin1String(entry.key); });
}

const ViewEntry* FindViewByOption(const QString& name) {
    return find([&](const ViewEntry& entry) { return name == QLatin1String(entry.option); });
}
