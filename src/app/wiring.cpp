#include "app/wiring.h"

namespace veloria {

void installTransport(AppState& app) {
    app.onLoadFile = [&app](const std::string& path) { loadMedia(app.transport, app.players, path); };
    app.onStop = [&app] { stopMedia(app.transport, app.players); };
    app.onPlay = [&app] { playMedia(app.transport, app.players); };
    app.onToggleFlag = [&app] { app.transport.toggleFlag = !app.transport.toggleFlag; };
    app.onReset = [&app] { resetMedia(app.transport, app.players); };
}

}  // namespace veloria
