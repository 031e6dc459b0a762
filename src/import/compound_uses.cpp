#include "import/compound_uses.h"

namespace corvane {

void CompoundUses::add(std::size_t user, std::size_t used)
{
    if (compounds_[used].lastUser == user)
        return;
    compounds_[used].lastUser = user;
    compounds_[user].used.push_back(used);
}

void CompoundUses::enterConnected(std::size_t compound)
{
    ++compounds_[compound].connected;
    connected_.push_back(compound);
    ++search_;
}

void CompoundUses::leaveConnected()
{
    --compounds_[connected_.back()].connected;
    connected_.pop_back();
}

void CompoundUses::leaveAll()
{
    while (!connected_.empty())
        leaveConnected();
}

bool CompoundUses::leadToConnected(std::size_t from)
{
    if (connected_.empty())
        return false;
    toSearch_.assign(1, from);
    while (!toSearch_.empty()) {
        Compound& compound = compounds_[toSearch_.back()];
        toSearch_.pop_back();
        ++steps_;
        if (compound.connected > 0) {
            ++search_;
            return true;
        }
        if (compound.seen == search_)
            continue;
        compound.seen = search_;
        toSearch_.insert(toSearch_.end(), compound.used.begin(), compound.used.end());
        steps_ += static_cast<std::int64_t>(compound.used.size());
    }
    return false;
}

} // namespace corvane
