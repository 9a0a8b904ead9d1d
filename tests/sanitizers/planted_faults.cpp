/* Commits the fault that its argument names. */
#include <cstdio>
#include <cstring>
#include <limits>

namespace {

// Volatile, so that no fault is seen, and taken out, at compile time.
volatile int s_four = 4;
volatile int s_largest = std::numeric_limits<int>::max();

int overflow()
{
    int* numbers = new int[4]{};
    const int result = numbers[s_four];
    delete[] numbers;
    return result;
}

int useAfterFree()
{
    int* number = new int(s_four);
    delete number;
    return *number;
}

int leak()
{
    int* volatile number = new int(s_four);
    const int result = *number;
    number = nullptr;
    return result;
}

int undefined()
{
    return s_largest + s_four;
}

} // namespace

int main(int argc, char** argv)
{
    const char* fault = argc > 1 ? argv[1] : "";
    int result = 0;
    if (std::strcmp(fault, "overflow") == 0)
        result = overflow();
    else if (std::strcmp(fault, "use_after_free") == 0)
        result = useAfterFree();
    else if (std::strcmp(fault, "leak") == 0)
        result = leak();
    else if (std::strcmp(fault, "undefined") == 0)
        result = undefined();
    else if (std::strcmp(fault, "nothing") != 0)
        return 2;
    std::printf("%d\n", result);
    return 0;
}
