// The in-memory desktop, which unit tests link instead of the Windows side of the platform.
//
// There is one per process, because the platform's functions are plain functions. Tests derive from
// `DesktopTest` (desktop_test.h), which resets it before every test.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "platform/application.h"
#include "platform/clipboard.h"
#include "platform/clock.h"
#include "platform/code_pages.h"
#include "platform/controls/window.h"
#include "platform/dialogs.h"
#include "platform/file_system.h"
#include "platform/files.h"
#include "platform/geometry.h"
#include "platform/record.h"
#include "platform/registry.h"
#include "platform/screens.h"
#include "platform/shell_links.h"
#include "platform/virtual_clock.h"

namespace memory {

/// Thrown by `application::end`. It is not derived from std::exception, so that no code of the
/// program that traps errors catches it.
struct ProgramEnded {};

/// Thrown by a step of a copy of the program that a test has ended. It is not derived from
/// std::exception either.
struct CopyEnded {};

/// A message box that was shown. Error reports are included, with the critical style.
struct Message {
  std::wstring text;
  platform::dialogs::MessageStyle style = platform::dialogs::MessageStyle::information;
  std::wstring title;
  platform::dialogs::Answer answer = platform::dialogs::Answer::ok;
  /// For an error report: the number of reports before it since the reset.
  std::optional<std::size_t> report;
};

/// An input box that was shown.
struct Input {
  std::wstring prompt;
  std::wstring title;
  std::wstring defaultAnswer;
  std::wstring answer;
};

/// A program that was started.
struct Start {
  std::wstring executable;
  std::wstring commandLine;
  bool operator==(const Start&) const = default;
};

/// A shortcut that was written.
struct LinkWrite {
  std::wstring path;
  platform::shell_links::Link link;
};

/// An address that was passed to the shell.
struct Browse {
  std::wstring address;
  int showCommand = 0;
};

/// A help viewer that was opened. `command` is used for classic help only.
struct Help {
  bool compiled = false;
  std::wstring file;
  int command = 0;
};

/// A registry value that was queried.
struct RegistryQuery {
  platform::registry::Root root = platform::registry::Root::currentUser;
  std::wstring key;
  std::wstring name;
  std::uint32_t access = 0;
  std::size_t bufferBytes = 0;
};

/// What the in-memory desktop stores for each native window.
struct WindowRecord;

/// Which calls fail (faults.h).
class Faults;

class Desktop {
 public:
  Desktop();
  Desktop(const Desktop&) = delete;
  Desktop& operator=(const Desktop&) = delete;
  ~Desktop();

  /// Restores the state of a fresh system: the folders C:\App, C:\Users\Ann\Documents and
  /// C:\Windows, code page 1252, 20 November 2026 14:30:15, nothing scripted, nothing recorded.
  void reset();

  // --- parts ---

  /// The disk. The short functions below use it too.
  FileSystem& disk() { return *disk_; }
  /// The calls that fail because a test wants them to (faults.h).
  Faults& faults() { return *faults_; }
  /// The clock with the timers of the loaded windows.
  VirtualClock& clock() { return clock_; }

  // --- files (see file_system.h) ---

  /// Creates a file with all its folders, replacing a file of that name. `modified` 0 means now.
  void putFile(const std::wstring& path, const std::string& bytes,
               unsigned attributes = platform::files::normal,
               platform::files::FileTime modified = 0);
  /// Creates a folder and its parents.
  void putFolder(const std::wstring& path);
  /// Creates a file that can be started.
  void putProgram(const std::wstring& path);
  /// Creates a shortcut, without a record in `linkWrites`.
  void putLink(const std::wstring& path, const platform::shell_links::Link& link);
  /// Removes a file, or a folder with its contents, whatever their attributes and locks are.
  void take(const std::wstring& path) { disk_->take(path); }
  /// Bytes of a file; nothing when there is no such file.
  [[nodiscard]] std::optional<std::string> bytesOf(const std::wstring& path) const;
  /// Whether a file or folder of that path exists, whatever its attributes are.
  [[nodiscard]] bool has(const std::wstring& path) const;
  /// Names in a folder, hidden ones too, in directory order.
  [[nodiscard]] std::vector<std::wstring> namesIn(const std::wstring& folder) const;
  void setReadOnly(const std::wstring& path, bool readOnly = true);
  void setHidden(const std::wstring& path, bool hidden = true);
  /// While a file is locked, every operation on it raises `error::permissionDenied`.
  void lock(const std::wstring& path);
  void unlock(const std::wstring& path);
  /// Lets nothing be made, changed or deleted in a folder.
  void protect(const std::wstring& folder) { disk_->setProtected(folder, true); }
  /// Gives a file or folder the short name that is the last component of `shortPath`.
  void alias(const std::wstring& shortPath, const std::wstring& longPath);
  /// Makes the volume of a drive ("C:") one that has short names: from now on everything on it
  /// whose name is not in 8.3 form has a short name ("___SUI~1"). Without this, only `alias`
  /// creates short names.
  void giveShortNames(const std::wstring& drive);
  /// The shortcut stored in a file, nothing when the file is no shortcut.
  [[nodiscard]] std::optional<platform::shell_links::Link> linkAt(const std::wstring& path) const;
  /// Drives ("E:") and shares without a Recycle Bin: what is deleted there is gone.
  std::set<std::wstring> noBin;
  /// What is in the bin, in the order of the deletions.
  [[nodiscard]] std::vector<FileSystem::Recycled> bin() const { return disk_->bin(); }
  /// As the user does it: nothing comes back.
  void emptyBin() { disk_->emptyBin(); }
  /// Called once per replacement, just before the target file is compared: simulates another
  /// program that writes at that moment.
  std::function<void()> onReplace;
  /// Called before everything that the program asks of the disk; may throw `CopyEnded`.
  std::function<void()> onStep;
  /// Called instead of waiting; without it, only the waiting of drafts counts the time.
  std::function<void(int milliseconds)> onWait;
  /// Called when a copy waits in the queue for a file, with the time that it waits at most; true
  /// when its turn has come.
  std::function<bool(const std::wstring& path, std::uint64_t milliseconds)> onTurn;
  /// Called when the program paints in the middle of its work.
  std::function<void()> onPaint;

  // --- the journal ---

  /// What the program did to the desktop, in order: "make folder P", "remove P", "recycle P",
  /// "restore P", "rename P -> Q", "copy P -> Q", "short name of new P", "read P", "read to append
  /// P", "create P" (with " (taken)"), "write P", "hold P" (with " (changed)" or " (in use)"),
  /// "replace P -> Q" (with " (taken)" or " (in use)"), "append P", "put back P -> Q", "setting
  /// S\K = V", "link P", "start E", "browse A", "copy T", "save file dialog", "classic help F",
  /// "compiled help F", "message T", "error N", "input P", "open file dialog", "folder dialog",
  /// "create W", "show W", "activate W", "menu M at X Y", "destroy W", "modal W", "run W", "tick
  /// T", "pump", "end", "start elevated E", "close help", "wait of W: T", "wait of W is over".
  /// Calls that only look are not in it; a call that failed is, with " failed N" behind it.
  [[nodiscard]] const std::vector<std::wstring>& journal() const { return journal_; }
  /// Whether the journal has that line.
  [[nodiscard]] bool journalHas(const std::wstring& line) const;
  /// Position of the first such line, nothing when there is none; for checks of the order.
  [[nodiscard]] std::optional<std::size_t> journalPlace(const std::wstring& line) const;
  void clearJournal() { journal_.clear(); }

  // --- text ---

  /// The system's code page, in which list files are: 1252 (after the reset), 1250 or 65001.
  static void setCodePage(int number) { memory::setCodePage(number); }

  // --- time ---

  /// Sets the date and time. The remaining waits of timers do not change.
  void setNow(const DateTime& now);
  [[nodiscard]] platform::files::FileTime now() const { return clock_.now(); }
  /// Lets time pass: timers tick and scripted actions run at their moments.
  void advance(int milliseconds);
  /// Runs `action` when that many milliseconds have passed.
  void at(int milliseconds, std::function<void()> action);
  /// Format dates; by default as "11/20/2026" and "11/20/2026 2:30:15 PM".
  std::function<std::wstring(const DateTime&)> formatDate;
  std::function<std::wstring(const DateTime&)> formatDateAndTime;
  /// How the user writes dates, as the program is told; "M/d/yyyy" with AM and PM.
  platform::clock::DateForm dateForm;

  // --- dialogs ---

  /// Answers for the next Yes/No boxes. A box without an answer is a mistake of the test: it is
  /// reported and answered with No.
  std::deque<platform::dialogs::Answer> answers;
  /// Message boxes that were shown. `DesktopTest` fails a test that did not read one of them. For
  /// an error report, reading `errorReports` is enough.
  Record<Message> messages;
  /// Numbers of the error reports. The reports are in `messages` too.
  Record<int> errorReports;
  /// Called while a message box is open.
  std::function<void(const Message&)> onMessage;
  /// Texts for the next input boxes; nothing means "keep the default and choose OK".
  std::deque<std::optional<std::wstring>> inputAnswers;
  std::vector<Input> inputs;
  /// Called while an input box is open.
  std::function<void(const Input&)> onInput;
  /// Results of the next file dialogs: a path, or the number of an error (`error::cancelled` for
  /// Cancel).
  std::deque<std::variant<std::wstring, int>> fileDialogResults;
  std::vector<platform::dialogs::FileRequest> fileDialogs;
  /// The same for dialogs in which the user may choose several files.
  std::deque<std::variant<std::vector<std::wstring>, int>> filesDialogResults;
  /// The same for save dialogs, which are in `fileDialogs`, too.
  std::deque<std::variant<platform::dialogs::SaveFileChoice, int>> saveDialogResults;
  /// The same for dialogs in which the user chooses a folder; their titles.
  std::deque<std::variant<std::wstring, int>> folderDialogResults;
  std::vector<std::wstring> folderDialogs;
  /// Called while a file dialog or a folder dialog is open.
  std::function<void()> onFileDialog;

  // --- other programs, the shell ---

  platform::clipboard::Content clipboard;
  std::vector<Start> starts;
  /// Programs that run with an administrator's rights only, and whether the user gives them.
  std::map<std::wstring, bool> elevated;
  /// Programs that the shell started with these rights; the command line without the program.
  std::vector<Start> elevatedStarts;
  std::vector<LinkWrite> linkWrites;
  /// Number of the error that every write of a shortcut raises.
  std::optional<int> linkFailure;
  std::intptr_t browserResult = 42;
  std::vector<Browse> browsed;
  std::vector<Help> helpShown;
  /// Another program keeps the clipboard open.
  bool clipboardBusy = false;
  /// Whether the system has a viewer for classic help, and shows compiled help.
  bool classicHelp = true;
  bool compiledHelp = true;
  /// How long work in the background takes.
  int backgroundMilliseconds = 0;
  /// Drives ("E:") that may be slow, as network paths always are.
  std::set<std::wstring> slowDrives;
  /// Drives ("E:") that are network drives.
  std::set<std::wstring> networkDrives;
  /// Drives ("E:") that are not connected; what lies on them is not found by then either.
  std::set<std::wstring> missingDrives;
  /// Documents folder as the shell reports it; nothing when the shell has none.
  std::optional<std::wstring> documents;
  /// Gives a program file an icon: a square of one colour, 0xAARRGGBB.
  void setIcon(const std::wstring& program, std::uint32_t colour);
  /// Called when the icon of a program is read.
  std::function<void(const std::wstring& program)> onIcon;
  /// Files whose icon was read, and the side in pixels.
  std::vector<std::pair<std::wstring, int>> iconsAsked;

  // --- the program ---

  std::wstring applicationFolder;
  platform::application::Version version;
  std::wstring copyright;
  bool previousInstance = false;
  /// Called during every pass over the pending messages.
  std::function<void()> onPump;
  int pumps = 0;

  // --- texts ---

  /// How often sort keys were made since the reset; one batch counts once.
  int sorts = 0;

  // --- settings and registry ---

  void setSetting(const std::wstring& section, const std::wstring& key, const std::wstring& value);
  [[nodiscard]] std::optional<std::wstring> setting(const std::wstring& section,
                                                    const std::wstring& key) const;
  void setRegistry(platform::registry::Root root, const std::wstring& key, const std::wstring& name,
                   platform::registry::Value value);
  /// A text value, stored with its final NUL.
  void setRegistryText(platform::registry::Root root, const std::wstring& key,
                       const std::wstring& name, const std::wstring& text);
  std::vector<RegistryQuery> registryQueries;

  // --- windows ---

  /// The screens, the primary one first.
  std::vector<platform::screens::Screen> screens;
  /// Dots per inch of the screen on which windows appear.
  int dpi = platform::designDpi;
  /// Windows that have a native window, the oldest first.
  [[nodiscard]] std::vector<controls::Window*> windows() const;
  /// The open window of that name, nullptr when there is none.
  [[nodiscard]] controls::Window* window(const std::wstring& name) const;
  /// How often the program has shown or activated a window of that name since the reset.
  [[nodiscard]] int shown(const std::wstring& name) const;
  [[nodiscard]] int activated(const std::wstring& name) const;
  /// The active window, nullptr when there is none.
  [[nodiscard]] controls::Window* active() const { return active_; }

  // --- mistakes of a test ---

  /// Texts of message boxes that the program showed and the test did not read, neither in
  /// `messages` nor, for an error report, in `errorReports`. A question whose answer was in
  /// `answers` was expected.
  [[nodiscard]] std::vector<std::wstring> unexpectedMessages() const;

  /// Called when a test left something unscripted (an unanswered box, a modal window that nothing
  /// would close). `DesktopTest` turns it into a test failure; without a callback the process
  /// aborts.
  std::function<void(const std::string&)> onMistake;

  // --- for the implementation of the seam ---

  /// One call that can fail: counts it, writes it into the journal and raises what a
  /// test asked for.
  void call(const std::wstring& what);
  /// Runs `operation` as one such call. An error that it raises is marked in the journal, and gets
  /// the path `path` unless it has another one or `path` is "".
  void call(const std::wstring& what, const std::function<void()>& operation,
            const std::wstring& path = {});
  /// Something that can neither fail nor find nothing.
  void step() const {
    if (onStep) {
      onStep();
    }
  }
  void wait(int milliseconds);
  /// Milliseconds of the clock and of all waiting.
  [[nodiscard]] std::uint64_t waitedUntil() const {
    return static_cast<std::uint64_t>(clock_.elapsed()) + clock_.waited;
  }
  /// Records one look; true when it must find nothing.
  [[nodiscard]] bool blinded();
  void note(const std::wstring& what);
  /// Appends to the last line of the journal.
  void amend(const std::wstring& more) { journal_.back() += more; }
  void mistake(const std::string& what) const;
  platform::dialogs::Answer show(Message message);
  std::wstring ask(Input input);
  void openWindow(controls::Window& window);
  void closeWindow(controls::Window& window);
  void runUntilUnloaded(controls::Window& window);
  void bringToFront(controls::Window& window);
  std::optional<platform::registry::Value> registryValue(platform::registry::Root root,
                                                         const std::wstring& key,
                                                         const std::wstring& name) const;
  std::optional<std::uint32_t> iconColour(const std::wstring& program) const;
  std::map<std::wstring, int> shownCounts;
  std::map<std::wstring, int> activatedCounts;

 private:
  std::unique_ptr<FileSystem> disk_;
  VirtualClock clock_;
  std::unique_ptr<Faults> faults_;
  std::vector<std::wstring> journal_;
  std::map<std::wstring, std::wstring> settings_;
  std::map<std::wstring, platform::registry::Value> registry_;
  std::map<std::wstring, std::uint32_t> icons_;
  std::vector<std::unique_ptr<WindowRecord>> windows_;
  controls::Window* active_ = nullptr;
};

/// The desktop of this process.
Desktop& desktop();

}  // namespace memory
