#include "net/AsyncSocket.h"

namespace tarveth {

std::unique_ptr<AsyncSocket> CreateAsyncSocket(PostToOwner, int) {
    return nullptr;
}

} // namespace tarveth
