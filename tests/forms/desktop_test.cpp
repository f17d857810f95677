// The order of forms, modal forms, and the life of forms that go within their own handlers.
#include "forms/desktop.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "forms/form.h"
#include "forms/memory_platform.h"
#include "forms/scripted_runtime.h"

namespace koprax {
namespace {

using testing::ElementsAre;

struct DesktopTest : testing::Test {
  struct Window final : Form {
    Window(Desktop& desk, const std::string& name) : Form(desk, name, name) {
      SetLayout(Framed(Frame1, Column({cmdGo})));
    }
    Frame Frame1{*this, "Frame1", {}};
    Button cmdGo{*this, "cmdGo", {.Caption = "Go"}};
  };

  std::shared_ptr<Window> Shown(const std::string& name) {
    auto window = Desk.Load<Window>(Desk, name);
    window->Show();
    return window;
  }
  std::vector<std::string> Order() {
    std::vector<std::string> names;
    for (const auto& form : Desk.ShownForms()) {
      names.push_back(form->Name());
    }
    return names;
  }

  MemoryPlatform Store;
  ScriptedRuntime Host{Store};
  Desktop Desk{Host};
};

TEST_F(DesktopTest, NothingComesInFrontOfAModalForm) {
  const auto first = Shown("First");
  const auto second = Shown("Second");
  const auto modal = Desk.Load<Window>(Desk, "Modal");
  Host.QueueModal("look", [&] {
    first->BringToFront();
    Shown("Third");
    EXPECT_THAT(Order(), ElementsAre("Modal", "Third", "Second", "First"));
    EXPECT_TRUE(Desk.WhyUnusable(second->cmdGo).has_value());
    EXPECT_FALSE(Desk.WhyUnusable(modal->cmdGo).has_value());
    modal->Unload();
  });
  modal->ShowModal();
  EXPECT_EQ(Desk.ModalForm(), nullptr);
  EXPECT_THAT(Order(), ElementsAre("Third", "Second", "First"));
}

TEST_F(DesktopTest, AFormThatGoesWithinItsOwnHandlerLivesUntilItReturns) {
  std::weak_ptr<Window> watched;
  bool guarded = false;
  {
    const auto window = Shown("Window");
    watched = window;
    const auto guard = window->WhileLoaded(std::function<void()>([&] { guarded = true; }));
    window->cmdGo.OnClick = [&, guard] {
      guard();
      EXPECT_TRUE(guarded);
      guarded = false;
      watched.lock()->Unload();
      watched.lock()->Unload();
      guard();
      EXPECT_EQ(Desk.Find("Window"), nullptr);
    };
  }
  Button& go = watched.lock()->cmdGo;
  go.Click();
  EXPECT_FALSE(guarded);
  EXPECT_TRUE(watched.expired());
}

TEST_F(DesktopTest, AFrameThatIsDisabledOrHiddenTakesItsControlsAlong) {
  const auto window = Shown("Window");
  window->Frame1.Enabled = false;
  EXPECT_EQ(Desk.WhyUnusable(window->cmdGo), "Window.Frame1 is disabled");
  window->Frame1.Visible = false;
  EXPECT_EQ(Desk.WhyUnusable(window->cmdGo), "Window.Frame1 is hidden");
  EXPECT_TRUE(window->cmdGo.Enabled);
}

TEST_F(DesktopTest, AfterTheEndNothingIsLoadedAndNoHandlerRuns) {
  const auto window = Shown("Window");
  int clicks = 0;
  window->cmdGo.OnClick = [&] {
    ++clicks;
    Desk.Quit();
    Shown("Late");
    Desk.Load<Window>(Desk, "Modal")->ShowModal();
  };
  window->cmdGo.Click();
  window->cmdGo.Click();
  EXPECT_EQ(clicks, 1);
  EXPECT_THAT(Order(), ElementsAre());
  EXPECT_EQ(Desk.Find("Late"), nullptr);
}

}  // namespace
}  // namespace koprax
