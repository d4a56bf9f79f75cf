#include "view_memory.h"

#include "controller/file_list.h"
#include "controller/result_tree.h"
#include "interface/result_table.h"
#include "interface/result_tree_view.h"
#include "model/file_store.h"
#include "model/set.h"

#include <malloc.h>

#include <QCoreApplication>
#include <string>

namespace tarvin::bench {

namespace {

/// Memory that this process has allocated and not freed, including unused parts of it.
std::size_t bytesInUse() {
    const struct mallinfo2 all = ::mallinfo2();
    return all.uordblks + all.hblkhd;
}

template <class Show>
double bytesForShowing(QWidget& view, Show show) {
    view.resize(400, 400);
    view.show();
    QCoreApplication::processEvents();
    const std::size_t before = bytesInUse();
    show();
    QCoreApplication::processEvents();
    view.grab();
    return static_cast<double>(bytesInUse()) - static_cast<double>(before);
}

double bytesOfOutline(const std::shared_ptr<Modal>& modal) {
    ResultTree tree;
    ResultTreeView view;
    view.setModel(&tree);
    return bytesForShowing(view, [&] {
        tree.setModal(modal);
        view.expandAll();
        while (view.isExpandingAll()) {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        }
    });
}

double bytesOfFiles(std::size_t count) {
    const std::shared_ptr<FileStore> store = FileStore::create();
    const Directory* const folder = store->addRoot("/folder");
    const auto set = std::make_shared<Set>();
    for (std::size_t number = 0; number < count; ++number) {
        set->addFiles(store->share(store->addFile(folder, "file " + std::to_string(number), 1,
                                                  std::nullopt, std::nullopt)));
    }
    FileList list;
    ResultTable view;
    view.setModel(&list);
    return bytesForShowing(view, [&] { list.setSet(set, 1); });
}

}  // namespace

ViewMemory memoryOfViews(const std::shared_ptr<Modal>& modal) {
    ViewMemory memory;
    memory.rows = modal->extensionCount();
    for (const auto& extension : modal->extensions()) {
        memory.rows += extension->sets().size();
    }
    const auto rows = static_cast<double>(memory.rows);
    memory.outline = bytesOfOutline(modal) / rows;
    memory.files = bytesOfFiles(memory.rows) / rows;
    return memory;
}

}  // namespace tarvin::bench
