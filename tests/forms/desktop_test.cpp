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

TEST_F(DesktopTest, EnterClicksTheButtonNearestToItsBox) {
  struct Boxes final : Form {
    explicit Boxes(Desktop& desk) : Form(desk, "Boxes", "Boxes") {
      SetLayout(Column({Text1, Row({Text2, Space(), cmdA}), Row({Text3, cmdB}),
                        Framed(Frame1, Column({Text4, cmdC})), cmdE}));
      for (Button* button : {&cmdA, &cmdB, &cmdC}) EnterClicks(*button);
      for (Button* button : {&cmdA, &cmdB, &cmdC, &cmdE}) {
        button->OnClick = [this, button] { Clicked += button->Name().back(); };
      }
    }
    /// What Enter clicks in a box, or on the form.
    std::string Enter(const TextBox* box = nullptr) {
      Clicked.clear();
      const bool taken = PressEnter(box);
      EXPECT_EQ(taken, !Clicked.empty());
      return Clicked;
    }
    using Form::EnterClicks;
    std::string Clicked;
    TextBox Text1{*this, "Text1", {}};
    TextBox Text2{*this, "Text2", {}};
    TextBox Text3{*this, "Text3", {}};
    TextBox Text4{*this, "Text4", {}};
    Frame Frame1{*this, "Frame1", {}};
    Button cmdA{*this, "cmdA", {}};
    Button cmdB{*this, "cmdB", {}};
    Button cmdC{*this, "cmdC", {}};
    Button cmdE{*this, "cmdE", {}};
  };
  const auto form = Desk.Load<Boxes>(Desk);
  form->Show();
  const auto of_each = [&form] {
    return form->Enter(&form->Text1) + "," + form->Enter(&form->Text2) + "," + form->Enter(&form->Text3) +
           "," + form->Enter(&form->Text4) + "," + form->Enter();
  };
  EXPECT_EQ(of_each(), ",A,B,C,") << "of several that are as near none is meant";
  form->EnterClicks(form->cmdE);
  form->cmdB.Enabled = form->Frame1.Visible = false;
  EXPECT_EQ(of_each(), ",A,,,E") << "what can't be clicked gives way to nothing else";
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
