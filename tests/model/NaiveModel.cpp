// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/model/NaiveModel.h"

#include "tests/model/NaiveConversion.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace wybeta::tests {

namespace {

constexpr int kDeletionMark = -1;

const Record* find(const Records& records, Id event) {
    for (const auto& record : records) {
        if (record.event == event) {
            return &record;
        }
    }
    return nullptr;
}

std::vector<RecordChange> difference(const Records& longer, const Records& shorter) {
    std::vector<RecordChange> changes;
    std::size_t j = 0;
    for (std::size_t i = 0; i < longer.size(); ++i) {
        const Id other = j < shorter.size() ? shorter[j].event : kNobody;
        if (other != longer[i].event) {
            changes.push_back({i, longer[i]});
        } else {
            ++j;
        }
    }
    return changes;
}

// A change that is meant for a place past the end is never reached, nor are those after it.
Records merge(const Records& records, const std::vector<RecordChange>& changes) {
    Records merged;
    std::size_t i = 0;
    std::size_t j = 0;
    while (true) {
        while (i < changes.size() && changes[i].position == merged.size()) {
            merged.push_back(changes[i++].record);
        }
        if (j == records.size()) {
            return merged;
        }
        merged.push_back(records[j++]);
    }
}

Records remove(Records records, const std::vector<RecordChange>& changes) {
    for (const auto& change : changes) {
        if (change.position < records.size()) {
            records[change.position].value = kDeletionMark;
        }
    }
    records.erase(
        std::remove_if(records.begin(), records.end(),
                       [](const Record& record) { return record.value == kDeletionMark; }),
        records.end());
    return records;
}

} // namespace

Id NaiveModel::add(Item item) {
    items_.push_back(std::move(item));
    return items_.size() - 1;
}

ModelChange NaiveModel::insertion(Id parent, std::size_t index, Id item) {
    return {ModelChange::Type::Insert, item, parent, index};
}

ModelChange NaiveModel::removal(Id parent, Id item) const {
    const auto& children = items_[parent].children;
    const auto place = std::find(children.begin(), children.end(), item);
    return {ModelChange::Type::Remove, item, parent,
            static_cast<std::size_t>(place - children.begin())};
}

ModelChange NaiveModel::alteration(Id event, EventState after) const {
    const Item& item = items_[event];
    ModelChange change{ModelChange::Type::Alter, event};
    if (after.kind) {
        change.before.kind = item.kind;
    }
    if (after.flagged) {
        change.before.flagged = item.flagged;
    }
    if (after.lyric) {
        change.before.lyric = item.lyric;
    }
    change.after = std::move(after);
    return change;
}

void NaiveModel::apply(const ModelChange& change) {
    switch (change.type) {
    case ModelChange::Type::Insert:
        return place(change.parent, change.index, change.item);
    case ModelChange::Type::Remove:
        return displace(change.parent, change.item);
    case ModelChange::Type::Alter:
        return alter(change.item, change.after);
    }
}

void NaiveModel::revert(const ModelChange& change) {
    switch (change.type) {
    case ModelChange::Type::Insert:
        return displace(change.parent, change.item);
    case ModelChange::Type::Remove:
        return place(change.parent, change.index, change.item);
    case ModelChange::Type::Alter:
        return alter(change.item, change.before);
    }
}

void NaiveModel::place(Id parent, std::size_t index, Id item) {
    auto& children = items_[parent].children;
    children.insert(children.begin() + static_cast<std::ptrdiff_t>(index), item);
}

void NaiveModel::displace(Id parent, Id item) {
    auto& children = items_[parent].children;
    children.erase(std::find(children.begin(), children.end(), item));
}

void NaiveModel::alter(Id event, const EventState& state) {
    Item& item = items_[event];
    item.kind = state.kind.value_or(item.kind);
    item.flagged = state.flagged.value_or(item.flagged);
    item.lyric = state.lyric.value_or(item.lyric);
}

std::vector<Step> NaiveModel::edit(const std::vector<ModelChange>& changes) {
    for (const auto& change : changes) {
        apply(change);
    }
    std::vector<Step> steps;
    if (!terminated_) {
        walkAndPrune(kProject, &steps);
    }
    done_.push_back({changes, steps});
    undone_.clear();
    return steps;
}

void NaiveModel::undo() {
    const Edit edit = done_.back();
    done_.pop_back();
    for (auto step = edit.steps.rbegin(); step != edit.steps.rend(); ++step) {
        undo(*step);
    }
    for (auto change = edit.changes.rbegin(); change != edit.changes.rend(); ++change) {
        revert(*change);
    }
    undone_.push_back(edit);
}

void NaiveModel::redo() {
    const Edit edit = undone_.back();
    undone_.pop_back();
    for (const auto& change : edit.changes) {
        apply(change);
    }
    for (const auto& step : edit.steps) {
        redo(step);
    }
    done_.push_back(edit);
}

void NaiveModel::notify(Id node) {
    walkAndPrune(node, nullptr);
}

void NaiveModel::walkAndPrune(Id node, std::vector<Step>* steps) {
    std::vector<Id> visited;
    walk(node, steps, visited);
    for (auto entry = table_.begin(); entry != table_.end();) {
        const bool met = std::find(visited.begin(), visited.end(), entry->first) != visited.end();
        entry = met ? std::next(entry) : table_.erase(entry);
    }
}

void NaiveModel::walk(Id node, std::vector<Step>* steps, std::vector<Id>& visited) {
    for (const Id child : items_[node].children) {
        if (items_[child].kind == Kind::Folder) {
            walk(child, steps, visited);
        } else if (items_[child].kind == Kind::VoiceTrack) {
            visited.push_back(child);
            visit(child, steps);
        }
    }
}

void NaiveModel::visit(Id track, std::vector<Step>* steps) {
    if (table_.count(track) == 0) {
        table_.try_emplace(track, firstSighting(track));
        return;
    }
    const Records old = table_[track];
    Records current;
    Step division{track};
    passLyrics(track, old, current, division);
    const bool grew = current.size() > old.size();
    const bool shrank = current.size() < old.size();
    table_[track] = current;
    if (steps == nullptr) {
        return;
    }
    if (!division.notes.empty()) {
        addStep(division, *steps);
    } else if (grew || shrank) {
        Step count{track};
        count.changes = grew ? difference(current, old) : difference(old, current);
        count.removed = shrank;
        addStep(count, *steps);
    }
}

// Other events get a record too, in the name of the note before them.
Records NaiveModel::firstSighting(Id track) const {
    Records records;
    Id lastNote = kNobody;
    for (const Id child : items_[track].children) {
        if (items_[child].kind != Kind::Part) {
            continue;
        }
        for (const Id id : items_[child].children) {
            const Item& event = items_[id];
            if (event.kind == Kind::Note) {
                lastNote = id;
                records.push_back({id, event.lyric, event.value});
            } else {
                records.push_back({lastNote, "", 0});
            }
        }
    }
    return records;
}

void NaiveModel::passLyrics(Id track, const Records& old, Records& current, Step& division) const {
    std::vector<std::string> left;
    for (const Id child : items_[track].children) {
        const Item& part = items_[child];
        if (part.kind != Kind::Part || (part.noIteratorWhenEmpty && part.children.empty())) {
            return;
        }
        for (const Id id : part.children) {
            const Item& event = items_[id];
            if (event.kind != Kind::Note) {
                continue;
            }
            current.push_back({id, event.lyric, event.value});
            std::string oldLyric = event.lyric;
            if (event.flagged) {
                const Record* const known = find(old, id);
                oldLyric = known != nullptr ? known->lyric : "";
                left.clear();
                if (event.lyric != oldLyric) {
                    left = naiveNoteLyrics(event.lyric);
                }
            }
            if (!left.empty()) {
                division.notes.push_back(id);
                division.oldLyrics.push_back(oldLyric);
                division.newLyrics.push_back(left.front());
                current.back().lyric = left.front();
                left.erase(left.begin());
            }
        }
    }
}

void NaiveModel::addStep(const Step& step, std::vector<Step>& steps) {
    if (notifiesInSteps) {
        notify(kProject);
    }
    steps.push_back(step);
    write(step, step.newLyrics);
}

void NaiveModel::undo(const Step& step) {
    write(step, step.oldLyrics);
    sync(step, step.oldLyrics);
    countChange(step, step.removed);
}

void NaiveModel::redo(const Step& step) {
    write(step, step.newLyrics);
    sync(step, step.newLyrics);
    countChange(step, !step.removed);
}

void NaiveModel::write(const Step& step, const std::vector<std::string>& lyrics) {
    for (std::size_t i = 0; i < step.notes.size(); ++i) {
        Item& note = items_[step.notes[i]];
        if (note.kind != Kind::Note) {
            continue;
        }
        if (notifiesInSteps && !terminated_) {
            notify(kProject);
        }
        note.lyric = lyrics[i];
    }
}

// Writes to the records that follow the first note's, whosever they are.
void NaiveModel::sync(const Step& step, const std::vector<std::string>& lyrics) {
    if (terminated_ || step.notes.empty()) {
        return;
    }
    for (auto& [track, records] : table_) {
        for (std::size_t k = 0; k < records.size(); ++k) {
            if (records[k].event != step.notes[0]) {
                continue;
            }
            for (std::size_t i = 0; i < lyrics.size() && k + i < records.size(); ++i) {
                records[k + i].lyric = lyrics[i];
            }
            return;
        }
    }
}

void NaiveModel::countChange(const Step& step, bool inserts) {
    const auto entry = table_.find(step.track);
    if (terminated_ || step.changes.empty() || entry == table_.end()) {
        return;
    }
    entry->second =
        inserts ? merge(entry->second, step.changes) : remove(entry->second, step.changes);
}

} // namespace wybeta::tests
