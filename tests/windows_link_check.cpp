// Links the logic into a Windows program, so that the cross build proves that every system call
// the Windows code uses resolves, not only that it compiles.
#include <cstdio>

#include "app/cpu_sampler.h"
#include "tools/dos_outputs.h"

int main() {
    quillet::DOSOutputs runner;
    std::fputs(runner.ExecuteCommand("cmd /c ver").c_str(), stdout);
    std::printf("CPU: %.2f%%\n", quillet::makeSystemCpuSampler()->read().value_or(-1));
    return 0;
}
