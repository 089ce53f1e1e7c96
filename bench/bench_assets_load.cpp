// Time to load UtilsDll into a process that has not loaded it (nor Qt) before:
// dlopen runs the static initialisers, which register the resource sets.
#include <benchmark/benchmark.h>

#include <dlfcn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>

namespace {

// A library that uses Qt stays mapped after dlclose (unique symbols), so every
// iteration loads it in a fresh child process and reports the time through a pipe.
void BM_OpenLibrary(benchmark::State& state)
{
    for (auto _ : state) {
        int channel[2];
        if (pipe(channel) != 0) {
            state.SkipWithError("pipe failed");
            return;
        }
        const pid_t child = fork();
        if (child == 0) {
            close(channel[0]);
            const auto start = std::chrono::steady_clock::now();
            void* library = dlopen(UTILSDLL_LIBRARY_FILE, RTLD_NOW | RTLD_LOCAL);
            double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
            if (!library)
                seconds = -1;
            (void)!write(channel[1], &seconds, sizeof seconds);
            _exit(0);
        }
        close(channel[1]);
        double seconds = -1;
        const bool read = ::read(channel[0], &seconds, sizeof seconds) == sizeof seconds;
        close(channel[0]);
        waitpid(child, nullptr, 0);
        if (!read || seconds < 0) {
            state.SkipWithError("the library did not load");
            return;
        }
        state.SetIterationTime(seconds);
    }
}
BENCHMARK(BM_OpenLibrary)->UseManualTime()->Iterations(30)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
