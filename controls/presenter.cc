#include "controls/presenter.h"

namespace {

// Stands in while no presenter is set: the user gets nothing.
class SilentPresenter : public Presenter {
 public:
  void ShowBraille(const CString&) override {}
  void Speak(const CString&, bool) override {}
  void StopSpeech() override {}
};

SilentPresenter silent;
Presenter* current = nullptr;

}  // namespace

Presenter& CurrentPresenter() { return current ? *current : silent; }

Presenter* SetPresenter(Presenter* presenter) {
  Presenter* previous = current;
  current = presenter;
  return previous;
}
