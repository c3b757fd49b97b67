#pragma once

namespace keelbright {

class AlertPresenter;
class AppState;
class FileChooser;
class Workspace;

/// What every screen gets; all of it outlives every screen.
struct ScreenContext
{
    AppState& state;
    AlertPresenter& alerts;
    Workspace& workspace;
    FileChooser& files;
};

} // namespace keelbright
