#include "Table.h"

#include <algorithm>
#include <cstdio>
#include <stdexcept>

namespace {

constexpr int kTurns = 10;          // maximum in a round
constexpr double kTurnsEnd = 50.0;  // ms after its start

std::string Number(double value, const char* format = "%.2f") {
    char text[32];
    std::snprintf(text, sizeof text, format, value);
    return text;
}

std::string Time(double milliseconds) {
    if (milliseconds >= 1) return Number(milliseconds, "%.1f ms");
    return milliseconds >= 0.01 ? Number(1000 * milliseconds, "%.1f us") : Number(1e6 * milliseconds, "%.0f ns");
}

// Returns the first, second, … quartile.
double Quantile(std::vector<double> values, size_t quarters) {
    std::sort(values.begin(), values.end());
    return values[quarters * (values.size() - 1) / 4];
}

}  // namespace

bool Table::Wants(const std::string& name) {
    last_ = name.find(wanted_) == std::string::npos ? "" : name;
    return !last_.empty();
}

void Table::Compare(const std::string& name, double limit, const char* unit, const Run& ours, const Run& peer) {
    if (!Wants(name)) return;
    std::vector<double> our, its, differences;
    bool steady = false;
    const auto measure = [&] {
        our.clear(), its.clear(), differences.clear();
        for (int round = 0; round <= kRounds; ++round) {
            double mine = ours(), others = peer();
            if (round == 0) continue;
            const double start = Milliseconds();
            for (int turn = 1; turn < kTurns && Milliseconds() - start < kTurnsEnd; ++turn) {
                mine = std::min(mine, ours());
                others = std::min(others, peer());
            }
            our.push_back(mine);
            its.push_back(others);
            differences.push_back(*unit ? mine - others : mine / others);
        }
        steady = *unit || Quantile(its, 3) - Quantile(its, 1) <= Quantile(its, 2) / 2;
        return steady && Quantile(differences, 2) <= limit;
    };
    const bool held = measure() || measure();
    if (!steady)
        ++unmeasured_;
    else if (!held)
        ++broken_;
    Print(name, Time(Quantile(our, 2)), Time(Quantile(its, 2)), Number(Quantile(differences, 2)) + unit,
          Number(limit) + unit,
          !steady ? "not measurable: the peer swings"
          : held  ? ""
                  : "BROKEN");
}

void Table::AtMost(const std::string& name, long long limit, long long ours) {
    if (!Wants(name)) return;
    if (ours > limit) ++broken_;
    Print(name, std::to_string(ours), "", "", std::to_string(limit), ours > limit ? "BROKEN" : "");
}

void Table::Same(const std::function<bool()>& same) const {
    if (!last_.empty() && !same()) throw std::runtime_error("Ours and the peer have different results: " + last_);
}

void Table::Print(const std::string& name, const std::string& ours, const std::string& peer, const std::string& ratio,
                  const std::string& limit, const std::string& remark) {
    const char kLine[] = "%-54s %10s %10s %9s %9s  %s\n";
    if (rows_++ == 0) std::printf(kLine, "", "ours", "peer", "ratio", "limit", "");
    std::printf(kLine, name.c_str(), ours.c_str(), peer.c_str(), ratio.c_str(), limit.c_str(), remark.c_str());
    std::fflush(stdout);
}

int Table::Conclude() const {
    std::printf("%d rows, %d beyond their limits, %d not measurable.\n", rows_, broken_, unmeasured_);
    return broken_ > 0 ? 1 : unmeasured_ > 0 || rows_ == 0 ? 2 : 0;
}
