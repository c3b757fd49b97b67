#include "KeelbrightCore/platform/system/SystemPanels.h"

#include "KeelbrightCore/platform/mac/ObjectiveC.h"

namespace keelbright {

namespace {

using ObjectiveC::classNamed;
using ObjectiveC::send;

constexpr long accepted = 1; // NSModalResponseOK

id textOf(const QString& text)
{
    return ObjectiveC::string(text.toUtf8().constData());
}

id listOf(const QStringList& texts)
{
    const id list = send<id>(classNamed("NSMutableArray"), "array");
    for (const QString& text : texts)
        send<void>(list, "addObject:", textOf(text));
    return list;
}

FileURL locationOf(id url)
{
    return FileURL::fromNativePath(send<const char*>(url, "fileSystemRepresentation"));
}

QList<FileURL> locationsOf(id panel)
{
    const id urls = send<id>(panel, "URLs");
    QList<FileURL> locations;
    for (unsigned long index = 0; index < send<unsigned long>(urls, "count"); ++index)
        locations.append(locationOf(send<id>(urls, "objectAtIndex:", index)));
    return locations;
}

void set(id panel, const char* property, bool value)
{
    send<void>(panel, property, static_cast<BOOL>(value));
}

void beginIn(id panel, const std::optional<FileURL>& folder)
{
    if (folder)
        send<void>(panel, "setDirectoryURL:", ObjectiveC::fileUrl(folder->nativePath().constData(), true));
}

using AnswerHandler = void (^)(long answer);

/// As a sheet of the window in front, which waits for the answer.
void begin(id panel, AnswerHandler handler)
{
    const id window = send<id>(send<id>(classNamed("NSApplication"), "sharedApplication"), "keyWindow");
    if (window != nullptr)
        send<void>(panel, "beginSheetModalForWindow:completionHandler:", window, handler);
    else
        send<void>(panel, "beginWithCompletionHandler:", handler);
}

} // namespace

bool SystemPanels::areThere()
{
    return true;
}

void SystemPanels::open(const OpenPanelRequest& request, std::function<void(const QList<FileURL>&)> chosen)
{
    const ObjectiveC::AutoreleasePool pool;
    const id panel = send<id>(classNamed("NSOpenPanel"), "openPanel");
    set(panel, "setCanChooseFiles:", !request.choosesFolders);
    set(panel, "setCanChooseDirectories:", request.choosesFolders);
    set(panel, "setAllowsMultipleSelection:", request.allowsMultipleSelection);
    set(panel, "setCanCreateDirectories:", request.canCreateFolders);
    send<void>(panel, "setMessage:", textOf(request.message));
    send<void>(panel, "setPrompt:", textOf(request.prompt));
    if (!request.extensions.isEmpty())
        send<void>(panel, "setAllowedFileTypes:", listOf(request.extensions));
    beginIn(panel, request.folder);
    const AnswerHandler handler = ^(long answer) {
      if (answer == accepted)
          chosen(locationsOf(panel));
    };
    begin(panel, handler);
}

void SystemPanels::save(const SavePanelRequest& request, std::function<void(const FileURL&)> chosen)
{
    const ObjectiveC::AutoreleasePool pool;
    const id panel = send<id>(classNamed("NSSavePanel"), "savePanel");
    set(panel, "setCanCreateDirectories:", true);
    send<void>(panel, "setMessage:", textOf(request.title));
    send<void>(panel, "setPrompt:", textOf(request.prompt));
    send<void>(panel, "setNameFieldStringValue:", textOf(request.name));
    if (!request.extension.isEmpty())
        send<void>(panel, "setAllowedFileTypes:", listOf({request.extension}));
    beginIn(panel, request.folder);
    const AnswerHandler handler = ^(long answer) {
      if (answer == accepted)
          chosen(locationOf(send<id>(panel, "URL")));
    };
    begin(panel, handler);
}

} // namespace keelbright
