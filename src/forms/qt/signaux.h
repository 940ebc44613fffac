// Termination signals as calls in the event loop: what is not saved is put in safety before the program ends.
#pragma once

#include <QObject>
#include <functional>

namespace quelvar::forms {

// While one lives, SIGTERM, SIGHUP and SIGINT call `avant` from the event loop; the program then ends by the signal. A
// second signal ends it at once. A signal that is ignored stays so.
class Signaux : public QObject {
 public:
  explicit Signaux(std::function<void()> avant);
  ~Signaux() override;
  Signaux(const Signaux&) = delete;
  Signaux& operator=(const Signaux&) = delete;

 private:
  std::function<void()> avant_;
};

}  // namespace quelvar::forms
