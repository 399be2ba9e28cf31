#include "program_windows.h"

#include "app/form3.h"
#include "app/form4.h"
#include "jobs/job_window.h"
#include "main/form1.h"
#include "metadata/form2.h"
#include "toolwindows/form10.h"
#include "toolwindows/form11.h"
#include "toolwindows/form13.h"
#include "toolwindows/form14.h"
#include "toolwindows/form9.h"

namespace quillet {

namespace {

template <class Form>
void add(Forms::Factories& factories) {
    factories[static_cast<std::size_t>(Form::kId)] = [](Forms& forms) { return new Form(forms); };
}

}  // namespace

Forms::Factories programWindows() {
    Forms::Factories factories;
    add<Form1>(factories);
    add<Form2>(factories);
    add<Form3>(factories);
    add<Form4>(factories);
    add<Form5>(factories);
    add<Form6>(factories);
    add<Form7>(factories);
    add<Form8>(factories);
    add<Form9>(factories);
    add<Form10>(factories);
    add<Form11>(factories);
    add<Form13>(factories);
    add<Form14>(factories);
    return factories;
}

}  // namespace quillet
