#pragma once

namespace keelbright {

/// Makes each `TreemapView` a list of its cells to a screen reader. Further calls do nothing.
void installAccessibleTreemap();

} // namespace keelbright
