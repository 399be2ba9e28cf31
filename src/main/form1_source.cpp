// Choosing the source video and finding its running time.
#include "main/form1.h"

namespace quillet {

void Form1::Label21_MouseUp(int Button) { (void)Button; }

void Form1::Timer3_Timer() {}

}  // namespace quillet
