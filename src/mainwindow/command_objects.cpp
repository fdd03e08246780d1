#include "mainwindow/command_objects.h"

#include <algorithm>
#include <utility>

#include "mainwindow/control_ids.h"
#include "mainwindow/main_window.h"
#include "platform/dispatcher.h"
#include "platform/run_time_error.h"

namespace mainwindow {

namespace {

/// The order in which the design gives the buttons their looks; the others follow.
constexpr std::array dressedFirst{ids::mnuExit,         ids::mnuIcon,   ids::mnuList,
                                  ids::mnuHelpContents, ids::mnuDelete, ids::mnuCreate,
                                  ids::mnuRename};

}  // namespace

CommandObjects::Object::Object(const Command& row)
    : command(row),
      item(row.name, row.id, row.caption),
      // The window begins with the first tab, but is not told that it enters it.
      allowed(row.onTab.front().enabled.value_or(true)) {}

CommandObjects::CommandObjects(frmQMK& form, controls::Toolbar& toolbar, const CommandTable& table)
    : form_(form),
      toolbar_(toolbar),
      table_(table),
      menus_{{{L"mnuFile", ids::mnuFile, L"File"},
              {L"mnuEdit", ids::mnuEdit, L"Edit"},
              {L"mnuView", ids::mnuView, L"View"},
              {L"mnuHelp", ids::mnuHelp, L"Help"}}},
      contextMenus_{{{L"mnuTools", 0, L""},
                     {L"mnuOpen", 0, L""},
                     {L"mnuNew", 0, L""},
                     {L"mnuWebList", 0, L""}}} {
  for (const Command& command : table.rows) {
    Object& object = objects_.emplace_back(command);
    object.item.setEnabled(object.allowed);
    object.item.onClick = [this, &object] {
      // The entry may have been enabled when the window was another.
      if (isAvailable(object)) {
        object.command.handler(form_, form_.TabMain.current());
      }
    };
    if (command.menu != Menu::none) {
      if (command.separated) {
        menu(command.menu).add(separators_.emplace_back(L"", 0, L"-"));
      }
      menu(command.menu).add(object.item);
    }
  }
  for (std::size_t tab = 0; tab < contextMenus_.size(); ++tab) {
    for (const int id : table.contextMenus.at(tab)) {
      contextMenus_.at(tab).add(id == 0 ? separators_.emplace_back(L"", 0, L"-") : item(id));
    }
  }
}

CommandObjects::Object& CommandObjects::find(int id) {
  const auto found = std::find_if(objects_.begin(), objects_.end(),
                                  [id](const Object& object) { return object.command.id == id; });
  if (found == objects_.end()) {
    throw platform::RunTimeError(platform::error::elementNotFound);
  }
  return *found;
}

std::vector<const CommandObjects::Object*> CommandObjects::buttons() {
  std::vector<const Object*> objects;
  for (const int id : table_.toolbar) {
    if (id != 0) {
      objects.push_back(&find(id));
    }
  }
  return objects;
}

controls::MenuItem& CommandObjects::item(int id) { return find(id).item; }

controls::MenuItem& CommandObjects::menu(Menu which) {
  return menus_.at(static_cast<std::size_t>(which));
}

const controls::MenuItem& CommandObjects::contextMenu(int tab) const {
  return contextMenus_.at(static_cast<std::size_t>(tab));
}

void CommandObjects::addPictures(controls::ImageList& images) {
  for (const Object* const object : buttons()) {
    images.addResource(object->command.button.image, object->command.button.resource);
  }
}

void CommandObjects::addButtons() {
  for (const int id : table_.toolbar) {
    if (id == 0) {
      toolbar_.addSeparator();
      continue;
    }
    const Button& button = find(id).command.button;
    controls::Toolbar::Button made;
    made.key = button.key;
    made.command = button.id;
    made.toolTip = button.toolTip;
    made.check = button.check;
    toolbar_.addButton(std::move(made));
  }
}

void CommandObjects::dressButtons() {
  std::vector<const Object*> objects = buttons();
  const auto rank = [](const Object* object) {
    return std::find(dressedFirst.begin(), dressedFirst.end(), object->command.id);
  };
  std::stable_sort(objects.begin(), objects.end(), [&rank](const Object* one, const Object* other) {
    return rank(one) < rank(other);
  });
  for (const Object* const object : objects) {
    toolbar_.setButtonImage(object->command.button.key, object->command.button.image);
  }
  for (const Object* const object : objects) {
    toolbar_.setButtonCaption(object->command.button.key, object->command.button.key);
  }
}

bool CommandObjects::isAvailable(const Object& object) const {
  return object.allowed && (object.command.available == nullptr || object.command.available(form_));
}

void CommandObjects::showEnabled(Object& object) {
  const Command& command = object.command;
  const bool enabled = isAvailable(object);
  object.item.setEnabled(enabled);
  if (command.button.key != nullptr) {
    toolbar_.setButtonEnabled(command.button.key, enabled);
  }
}

void CommandObjects::showTab(int tab) {
  for (Object& object : objects_) {
    const OnTab& cells = object.command.onTab.at(static_cast<std::size_t>(tab));
    if (cells.enabled) {
      object.allowed = *cells.enabled;
      showEnabled(object);
    }
    if (cells.toolTip != nullptr) {
      toolbar_.setButtonToolTip(object.command.button.key, cells.toolTip);
    }
    if (cells.caption != nullptr) {
      object.item.setCaption(cells.caption);
    }
  }
}

void CommandObjects::refresh() {
  for (Object& object : objects_) {
    if (object.command.captionNow != nullptr) {
      object.item.setCaption(object.command.captionNow(form_));
    }
    if (object.command.available != nullptr) {
      showEnabled(object);
    }
  }
}

std::wstring CommandObjects::explanation(const controls::MenuItem& item) const {
  const auto found = std::find_if(objects_.begin(), objects_.end(),
                                  [&item](const Object& object) { return &object.item == &item; });
  if (found == objects_.end() || found->command.explanation == nullptr) {
    return {};
  }
  if (const wchar_t* const reason = whyNot(*found)) {
    return reason;
  }
  const std::wstring key = keyName(found->command.key.stroke);
  return found->command.explanation + (key.empty() ? key : L" (" + key + L")");
}

const wchar_t* CommandObjects::whyNot(const Object& object) const {
  return object.allowed && !object.item.enabled() && object.command.refusal != nullptr
             ? object.command.refusal(form_)
             : nullptr;
}

bool CommandObjects::enabled(int id) {
  refresh();
  return item(id).enabled();
}

void CommandObjects::click(const std::wstring& buttonKey) {
  const auto found =
      std::find_if(objects_.begin(), objects_.end(), [&buttonKey](const Object& object) {
        return object.command.button.key != nullptr && object.command.button.key == buttonKey;
      });
  if (found != objects_.end()) {
    found->command.handler(form_, form_.TabMain.current());
  }
}

bool CommandObjects::press(const controls::KeyStroke& stroke, Reach reach, int list) {
  const auto found = std::find_if(objects_.begin(), objects_.end(), [&](const Object& object) {
    const Key& key = object.command.key;
    return key.stroke.key != 0 && key.stroke == stroke && key.reach == reach;
  });
  if (found == objects_.end()) {
    return false;
  }
  refresh();
  if (found->item.enabled()) {
    found->command.handler(form_, list);
  } else if (const wchar_t* const reason = whyNot(*found)) {
    form_.tell(reason);
  }
  return true;
}

}  // namespace mainwindow
