// What the directory walk and the tree copy cost against the standard
// library on the same tree: 20,000 small files in 400 folders (20 folders of
// 20 sub-folders, 50 files in each sub-folder), under the temporary
// directory. ListFilesRecursive against recursive_directory_iterator
// gathering every path, CopyTree against filesystem::copy(recursive).
// Runs are interleaved; the fastest of each is the least disturbed.
// Target: each ratio <= 1.2.
#include "support/Support.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace fs = std::filesystem;

namespace {

constexpr int kTop = 20, kSub = 20, kFiles = 50;
constexpr int kRepeats = 3;

using Clock = std::chrono::steady_clock;

double SecondsSince(Clock::time_point start)
{
    return std::chrono::duration<double>(Clock::now() - start).count();
}

void MakeTree(const fs::path& root)
{
    for (int t = 0; t < kTop; ++t) {
        for (int s = 0; s < kSub; ++s) {
            const fs::path dir = root / ("top" + std::to_string(t)) / ("sub" + std::to_string(s));
            fs::create_directories(dir);
            for (int f = 0; f < kFiles; ++f)
                std::ofstream(dir / ("file" + std::to_string(f) + ".dat"), std::ios::binary)
                    << "content of file " << t << '.' << s << '.' << f << '\n';
        }
    }
}

} // namespace

int main()
{
    const fs::path base = fs::temp_directory_path() / "tree_bench";
    fs::remove_all(base);
    const fs::path source = base / "source";
    MakeTree(source);
    const std::string sourceText = source.string();

    double listOurs = 1e9, listStd = 1e9, copyOurs = 1e9, copyStd = 1e9;
    size_t seen = 0;
    for (int r = 0; r < kRepeats; ++r) {
        std::vector<CString> list;
        Clock::time_point start = Clock::now();
        ListFilesRecursive(sourceText.c_str(), list);
        listOurs = std::min(listOurs, SecondsSince(start));
        seen += list.size();

        std::vector<std::string> paths;
        start = Clock::now();
        for (const fs::directory_entry& entry : fs::recursive_directory_iterator(source))
            paths.push_back(entry.path().string());
        listStd = std::min(listStd, SecondsSince(start));
        seen += paths.size();

        const fs::path ours = base / "ours", theirs = base / "theirs";
        fs::remove_all(ours);
        fs::remove_all(theirs);
        fs::create_directories(ours);
        start = Clock::now();
        CopyTree(sourceText.c_str(), ours.string().c_str());
        copyOurs = std::min(copyOurs, SecondsSince(start));

        start = Clock::now();
        fs::copy(source, theirs, fs::copy_options::recursive);
        copyStd = std::min(copyStd, SecondsSince(start));
    }
    const auto count = [](const fs::path& root) {
        return std::count_if(fs::recursive_directory_iterator(root), fs::recursive_directory_iterator(),
                             [](const fs::directory_entry& e) { return e.is_regular_file(); });
    };
    std::printf("tree                         %d files in %d folders\n", kTop * kSub * kFiles, kTop * kSub);
    std::printf("ListFilesRecursive           %8.1f ms\n", listOurs * 1e3);
    std::printf("recursive_directory_iterator %8.1f ms\n", listStd * 1e3);
    std::printf("ratio walk                   %8.3f   (target <= 1.2)\n", listOurs / listStd);
    std::printf("CopyTree                     %8.1f ms  (%lld files copied)\n", copyOurs * 1e3,
                static_cast<long long>(count(base / "ours")));
    std::printf("filesystem::copy             %8.1f ms  (%lld files copied)\n", copyStd * 1e3,
                static_cast<long long>(count(base / "theirs")));
    std::printf("ratio copy                   %8.3f   (target <= 1.2)\n", copyOurs / copyStd);
    std::printf("(entries seen %zu)\n", seen);
    fs::remove_all(base);
    return 0;
}
