// What the class system calls while it walks.
#pragma once

namespace zelk {

/// What is called once for every node of a walk. Two virtual slots: the destructor and `visit`.
template <class Node>
class COSVisitor {
public:
    virtual ~COSVisitor() = default;
    /// `node` is not null and is borrowed for the call; a visitor that keeps it takes a handle.
    virtual void visit(Node node) = 0;
};

}  // namespace zelk
