#include "platform/desktop.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include "platform/faults.h"
#include "platform/link_text.h"
#include "platform/run_time_error.h"
#include "platform/text.h"
#include "platform/unfailing.h"
#include "platform/window_record.h"

namespace memory {

using platform::RunTimeError;
using platform::dialogs::Answer;
using platform::dialogs::MessageStyle;
using platform::text::upper;

namespace {

std::wstring twoDigits(int number) { return (number < 10 ? L"0" : L"") + std::to_wstring(number); }

std::wstring shortDate(const DateTime& moment) {
  return std::to_wstring(moment.month) + L"/" + std::to_wstring(moment.day) + L"/" +
         std::to_wstring(moment.year);
}

std::wstring shortDateAndTime(const DateTime& moment) {
  const int hour = moment.hour % 12 == 0 ? 12 : moment.hour % 12;
  return shortDate(moment) + L" " + std::to_wstring(hour) + L":" + twoDigits(moment.minute) + L":" +
         twoDigits(moment.second) + (moment.hour < 12 ? L" AM" : L" PM");
}

std::wstring settingName(const std::wstring& section, const std::wstring& key) {
  return upper(section) + L"\\" + upper(key);
}

std::wstring registryName(platform::registry::Root root, const std::wstring& key,
                          const std::wstring& name) {
  const bool user = root == platform::registry::Root::currentUser;
  return (user ? L"user\\" : L"machine\\") + upper(key) + L"\n" + upper(name);
}

bool asks(const Message& message) {
  return message.style == MessageStyle::yesNoWarning ||
         message.style == MessageStyle::yesNoQuestion;
}

}  // namespace

Desktop& desktop() {
  static Desktop theDesktop;
  return theDesktop;
}

Desktop::Desktop() : faults_(std::make_unique<Faults>()) { reset(); }

Desktop::~Desktop() = default;

void Desktop::reset() {
  while (!windows_.empty()) {
    closeWindow(windows_.back()->window());
  }
  clock_.reset();
  setCodePage(1252);
  disk_ = std::make_unique<FileSystem>([this] { return clock_.now(); });
  putFolder(L"C:\\App");
  putFolder(L"C:\\Users\\Ann\\Documents");
  putFolder(L"C:\\Windows");
  noBin.clear();
  onReplace = nullptr;
  onStep = nullptr;
  onWait = nullptr;
  onTurn = nullptr;
  onPaint = nullptr;
  *faults_ = {};
  journal_.clear();
  formatDate = shortDate;
  formatDateAndTime = shortDateAndTime;
  answers.clear();
  messages = {};
  errorReports = {};
  sorts = 0;
  onMessage = nullptr;
  inputAnswers.clear();
  inputs.clear();
  onInput = nullptr;
  fileDialogResults.clear();
  fileDialogs.clear();
  folderDialogResults.clear();
  folderDialogs.clear();
  onFileDialog = nullptr;
  filesDialogResults.clear();
  saveDialogResults.clear();
  clipboard = {};
  clipboardBusy = false;
  starts.clear();
  linkWrites.clear();
  linkFailure.reset();
  browserResult = 42;
  browsed.clear();
  helpShown.clear();
  classicHelp = true;
  compiledHelp = true;
  slowDrives.clear();
  networkDrives.clear();
  missingDrives.clear();
  dateForm = {L"M/d/yyyy", {}, L"AM", L"PM"};
  backgroundMilliseconds = 0;
  documents = L"C:\\Users\\Ann\\Documents";
  icons_.clear();
  onIcon = nullptr;
  iconsAsked.clear();
  applicationFolder = L"C:\\App";
  version = {3, 0, 0};
  copyright = L"Copyright \u00A9 2026 Quillmark";
  previousInstance = false;
  elevated.clear();
  elevatedStarts.clear();
  screens = {{.workArea = {0, 0, 1280, 984}, .dpi = platform::designDpi}};
  onPump = nullptr;
  pumps = 0;
  settings_.clear();
  registry_.clear();
  registryQueries.clear();
  dpi = platform::designDpi;
  active_ = nullptr;
  onMistake = nullptr;
  shownCounts.clear();
  activatedCounts.clear();
}

void Desktop::putFile(const std::wstring& path, const std::string& bytes, unsigned attributes,
                      platform::files::FileTime modified) {
  disk_->putFile(path, bytes, attributes, modified);
}

void Desktop::putFolder(const std::wstring& path) { disk_->putFolder(path); }

void Desktop::putProgram(const std::wstring& path) { putFile(path, "MZ a program"); }

void Desktop::putLink(const std::wstring& path, const platform::shell_links::Link& link) {
  putFile(path, textOf(link));
}

std::optional<std::string> Desktop::bytesOf(const std::wstring& path) const {
  return disk_->bytesOf(path);
}

bool Desktop::has(const std::wstring& path) const { return disk_->has(path); }

std::vector<std::wstring> Desktop::namesIn(const std::wstring& folder) const {
  return disk_->namesIn(folder);
}

void Desktop::setReadOnly(const std::wstring& path, bool readOnly) {
  disk_->setReadOnly(path, readOnly);
}

void Desktop::setHidden(const std::wstring& path, bool hidden) { disk_->setHidden(path, hidden); }

void Desktop::lock(const std::wstring& path) { disk_->setLocked(path, true); }

void Desktop::unlock(const std::wstring& path) { disk_->setLocked(path, false); }

void Desktop::alias(const std::wstring& shortPath, const std::wstring& longPath) {
  disk_->alias(shortPath, longPath);
}

void Desktop::giveShortNames(const std::wstring& drive) { disk_->giveShortNames(drive); }

std::optional<platform::shell_links::Link> Desktop::linkAt(const std::wstring& path) const {
  const auto bytes = bytesOf(path);
  return bytes ? linkOf(*bytes) : std::nullopt;
}

bool Desktop::journalHas(const std::wstring& line) const { return journalPlace(line).has_value(); }

std::optional<std::size_t> Desktop::journalPlace(const std::wstring& line) const {
  const auto found = std::find(journal_.begin(), journal_.end(), line);
  if (found == journal_.end()) {
    return std::nullopt;
  }
  return static_cast<std::size_t>(found - journal_.begin());
}

bool Desktop::blinded() {
  step();
  return faults_->blinded();
}

void Desktop::wait(int milliseconds) {
  if (onWait) {
    onWait(milliseconds);
  } else {
    clock_.waited += static_cast<std::uint64_t>(milliseconds);
  }
}

void Desktop::call(const std::wstring& what) {
  call(what, [] {});
}

void Desktop::call(const std::wstring& what, const std::function<void()>& operation,
                   const std::wstring& path) {
  step();
  const Unfailing own;
  const std::size_t line = journal_.size();
  note(what);
  try {
    platform::concerning(path, [&] { faults_->attempt({what, line, path}, operation); });
  } catch (const RunTimeError& failure) {
    // A hook that ran meanwhile may have cleared the journal.
    if (line < journal_.size()) {
      journal_[line] += L" failed " + std::to_wstring(failure.number());
    }
    throw;
  }
}

void Desktop::setNow(const DateTime& now) { clock_.setNow(fileTime(now)); }

void Desktop::advance(int milliseconds) { clock_.advance(milliseconds); }

void Desktop::at(int milliseconds, std::function<void()> action) {
  clock_.set(milliseconds, std::move(action), false);
}

void Desktop::mistake(const std::string& what) const {
  if (!onMistake) {
    static_cast<void>(std::fprintf(stderr, "%s\n", what.c_str()));
    std::abort();
  }
  onMistake(what);
}

void Desktop::note(const std::wstring& what) {
  const Unfailing own;
  journal_.push_back(what);
}

Answer Desktop::show(Message message) {
  note(L"message " + message.text);
  if (asks(message)) {
    if (answers.empty()) {
      mistake("A message box asks and the test has no answer for it: " +
              platform::text::toCodePage(message.text));
      message.answer = Answer::no;
    } else {
      message.answer = answers.front();
      answers.pop_front();
    }
  }
  {
    const Unfailing own;
    messages.push_back(message);
  }
  if (onMessage) {
    onMessage(message);
  }
  return message.answer;
}

std::vector<std::wstring> Desktop::unexpectedMessages() const {
  std::vector<std::wstring> texts;
  std::size_t index = messages.total() - messages.unseen().size();
  for (const Message& message : messages.unseen()) {
    const bool lookedAtAsReport = message.report && *message.report < errorReports.lookedAt();
    if (index++ >= messages.lookedAt() && !lookedAtAsReport && !asks(message)) {
      texts.push_back(message.text);
    }
  }
  return texts;
}

std::wstring Desktop::ask(Input input) {
  note(L"input " + input.prompt);
  if (inputAnswers.empty()) {
    mistake("An input box asks and the test has no answer for it: " +
            platform::text::toCodePage(input.prompt));
  } else {
    input.answer = inputAnswers.front().value_or(input.defaultAnswer);
    inputAnswers.pop_front();
  }
  {
    const Unfailing own;
    inputs.push_back(input);
  }
  if (onInput) {
    onInput(input);
  }
  return input.answer;
}

void Desktop::setIcon(const std::wstring& program, std::uint32_t colour) {
  icons_[upper(program)] = colour;
}

std::optional<std::uint32_t> Desktop::iconColour(const std::wstring& program) const {
  const auto found = icons_.find(upper(program));
  if (found == icons_.end() || !has(program)) {
    return std::nullopt;
  }
  return found->second;
}

void Desktop::setSetting(const std::wstring& section, const std::wstring& key,
                         const std::wstring& value) {
  settings_[settingName(section, key)] = value;
}

std::optional<std::wstring> Desktop::setting(const std::wstring& section,
                                             const std::wstring& key) const {
  const auto found = settings_.find(settingName(section, key));
  return found == settings_.end() ? std::nullopt : std::optional(found->second);
}

void Desktop::setRegistry(platform::registry::Root root, const std::wstring& key,
                          const std::wstring& name, platform::registry::Value value) {
  registry_[registryName(root, key, name)] = std::move(value);
}

void Desktop::setRegistryText(platform::registry::Root root, const std::wstring& key,
                              const std::wstring& name, const std::wstring& text) {
  platform::registry::Value value{platform::registry::typeString, {}};
  for (const wchar_t c : text + L'\0') {
    value.bytes.push_back(static_cast<std::uint8_t>(c & 0xFF));
    value.bytes.push_back(static_cast<std::uint8_t>((c >> 8) & 0xFF));
  }
  setRegistry(root, key, name, std::move(value));
}

std::optional<platform::registry::Value> Desktop::registryValue(platform::registry::Root root,
                                                                const std::wstring& key,
                                                                const std::wstring& name) const {
  const auto found = registry_.find(registryName(root, key, name));
  return found == registry_.end() ? std::nullopt : std::optional(found->second);
}

}  // namespace memory
