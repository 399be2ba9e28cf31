#include "jobs/job_window.h"

#include <gtest/gtest.h>

#include <QTest>
#include <memory>

#include "app/scripted_dialogs.h"
#include "text_fits.h"

namespace quillet {
namespace {

// Each method's job window, as it opens.
template <class Window>
class JobWindowLayout : public ::testing::Test {
protected:
    ProgramState state;
    ScriptedDialogs dialogs;
    Forms forms{state, dialogs, {}};
};

using JobWindows = ::testing::Types<Form5, Form6, Form7, Form8>;
TYPED_TEST_SUITE(JobWindowLayout, JobWindows);

TYPED_TEST(JobWindowLayout, ShowsItsTitleWhole) {
    TypeParam window(this->forms);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    EXPECT_TRUE(textIsWhole(window));
}

}  // namespace
}  // namespace quillet
