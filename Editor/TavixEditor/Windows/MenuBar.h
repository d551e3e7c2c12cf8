// The menus, as a row of the top bar.
#pragma once

class QMenuBar;

namespace tavix::editor {

struct Actions;

QMenuBar* makeMenuBar(const Actions& actions);

}   // namespace tavix::editor
