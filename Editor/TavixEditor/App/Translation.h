// The words of the interface in the language of the desktop.
#pragma once

class QApplication;
class QLocale;

namespace tavix::editor {

// Before the first widget is made. What has no translation stays English; false where there is none at all.
bool translateInto(const QLocale& locale, QApplication& application);

}   // namespace tavix::editor
