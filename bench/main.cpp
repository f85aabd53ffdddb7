#include "app/BarePopup.h"

#include <benchmark/benchmark.h>

#include <string_view>

int main(int argumentCount, char** arguments) {
    if (argumentCount > 1 && std::string_view(arguments[1]) == velmora::kBarePopupArgument) {
        return velmora::runBarePopup(argumentCount, arguments);
    }
    benchmark::Initialize(&argumentCount, arguments);
    if (benchmark::ReportUnrecognizedArguments(argumentCount, arguments)) return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
