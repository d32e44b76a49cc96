#include "foundation/signal.h"

namespace zk::signal_detail {

Core::~Core() {
  for (Emission* emission = emissions_; emission != nullptr; emission = emission->outer) {
    emission->signal_gone = true;
  }
  Node* node = head_;
  while (node != nullptr) {
    Node* next = node->next;
    node->core = nullptr;
    node->next = nullptr;
    // A node that a connection still holds goes with the connection; one whose handler runs
    // goes when its handler returns.
    if (!node->held && node->running == 0) delete node;
    node = next;
  }
}

void Core::Append(Node* node) {
  node->core = this;
  if (tail_ != nullptr) {
    tail_->next = node;
  } else {
    head_ = node;
  }
  tail_ = node;
  ++live_;
}

void Core::Enter(Emission& emission) {
  emission.outer = emissions_;
  emissions_ = &emission;
}

void Core::Leave(Emission& emission) {
  emissions_ = emission.outer;
  if (emissions_ == nullptr && dead_ > 0) Compact();
}

void Core::Ended(Node&) {
  --live_;
  ++dead_;
  // Nodes that may be running are only marked. Many connections end together (a form closing),
  // so the list is compacted once the ended ones outnumber the others, not every time.
  if (emissions_ == nullptr && dead_ > live_) Compact();
}

void Core::Compact() {
  Node** link = &head_;
  Node* previous = nullptr;
  while (Node* node = *link) {
    if (node->alive) {
      previous = node;
      link = &node->next;
    } else {
      // Ended, so no connection holds it, and no emission runs.
      *link = node->next;
      delete node;
    }
  }
  tail_ = previous;
  dead_ = 0;
}

void Release(Node* node) {
  node->held = false;
  if (node->core != nullptr) {
    if (node->alive) {
      node->alive = false;
      node->core->Ended(*node);
    }
  } else if (node->running == 0) {
    delete node;
  }
}

void AfterOrphanedCall(Node* node) {
  if (node->core == nullptr && !node->held && node->running == 0) delete node;
}

}  // namespace zk::signal_detail
