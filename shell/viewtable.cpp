#include "shell/viewtable.h"

#include <algorithm>

namespace {

template <typename Matches>
const ViewEntry* find(Matches matches) {
    const auto* found = std::find_if(ViewTable.begin(), ViewTable.end(), matches);
    return found == ViewTable.end() ? nullptr : found;
}

}  // namespace

const ViewEntry* FindView(View view) {
    return find([view](const ViewEntry& entry) { return entry.view == view; });
}

const ViewEntry* FindViewByKey(const QString& taskPaneKey) {
    return find([&](const ViewEntry& entry) { return taskPaneKey == QLatin1String(entry.key); });
}

const ViewEntry* FindViewByOption(const QString& name) {
    return find([&](const ViewEntry& entry) { return name == QLatin1String(entry.option); });
}
