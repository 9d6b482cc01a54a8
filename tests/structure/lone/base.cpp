#include "base/numbers.h"

int main()
{
    return base::decimalText(base::leadingNumber("1.5 Kb")) == "1.5" ? 0 : 1;
}
