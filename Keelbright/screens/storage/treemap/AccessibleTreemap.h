#pragma once

namespace keelbright {

/// Has a screen reader meet each `TreemapView` as a list of its cells; once is enough.
void installAccessibleTreemap();

} // namespace keelbright
