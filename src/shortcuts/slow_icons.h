// Icons of programs on drives that may take long to answer.
//
// A share that is offline, or a card reader, may hold up whoever asks it for many seconds. The list
// must not wait for that: its entries appear at once, and these icons come later, one at a time.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>

#include "platform/pictures.h"

namespace modSC {

class SlowIcons {
 public:
  /// Called with the key and the icons of a program that has been read.
  using Show = std::function<void(const std::wstring& key, const platform::pictures::Icons& icons)>;

  SlowIcons();

  /// The list begins anew: no icon that was asked for until now is shown any more.
  void forget();
  /// Whether the icons of this program have to come later.
  [[nodiscard]] bool mustWaitFor(const std::wstring& program);
  /// Reads the icons of `program` in the background, after those that were asked for before, and
  /// once for all who wait for them. `show` gets them for each key, unless they are forgotten by
  /// then.
  void ask(const std::wstring& key, const std::wstring& program,
           const platform::pictures::Sizes& sides, Show show);

 private:
  struct Queue;
  static void readNext(const std::shared_ptr<Queue>& queue);

  /// Shared with the reading that goes on, which may outlive this object.
  std::shared_ptr<Queue> queue_;
  /// What is known of the drives, so that each is asked about only once for a list.
  std::map<std::wstring, bool> slowDrives_;
};

}  // namespace modSC
