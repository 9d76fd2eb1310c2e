#include "platform/xls/container.h"

#include <gsf/gsf.h>

#include <memory>

#include "base/failure.h"
#include "platform/xls/record.h"

namespace desk::xls {

namespace {

/// Beyond these a directory leads in circles.
constexpr int deepest = 16;
constexpr int mostEntries = 10000;

struct Unref {
    void operator()(gpointer object) const { g_object_unref(object); }
};
template <class T>
using Held = std::unique_ptr<T, Unref>;

/// The library reads on after damage, and only warns; a file that it warns of is not written back.
class Warnings {
  public:
    Warnings() {
        for (std::size_t i = 0; i < domains.size(); ++i)
            handlers_[i] = g_log_set_handler(domains[i], G_LOG_LEVEL_MASK, &Warnings::note, this);
    }
    ~Warnings() {
        for (std::size_t i = 0; i < domains.size(); ++i) g_log_remove_handler(domains[i], handlers_[i]);
    }
    Warnings(const Warnings&) = delete;
    Warnings& operator=(const Warnings&) = delete;

    bool any() const { return any_; }

  private:
    static constexpr std::array<const char*, 3> domains = {nullptr, "libgsf", "libgsf:msole"};

    static void note(const gchar*, GLogLevelFlags, const gchar*, gpointer self) {
        static_cast<Warnings*>(self)->any_ = true;
    }

    std::array<guint, domains.size()> handlers_{};
    bool any_ = false;
};

void readClassId(GsfInfile* folder, Entry& entry) {
    gsf_infile_msole_get_class_id(GSF_INFILE_MSOLE(folder), reinterpret_cast<guint8*>(entry.classId.data()));
}

std::string readBytes(GsfInput* input) {
    const auto size = static_cast<std::size_t>(gsf_input_size(input));
    std::string bytes(size, '\0');
    if (size > 0 && gsf_input_read(input, size, reinterpret_cast<guint8*>(bytes.data())) == nullptr)
        damaged();
    return bytes;
}

void readChildren(GsfInfile* folder, Entry& into, int depth, int& left) {
    const int count = gsf_infile_num_children(folder);
    if (depth > deepest || count > left) damaged();
    left -= count;
    readClassId(folder, into);
    for (int i = 0; i < count; ++i) {
        const Held<GsfInput> child(gsf_infile_child_by_index(folder, i));
        if (!child) damaged();
        Entry& entry = into.children.emplace_back();
        if (const char* name = gsf_infile_name_by_index(folder, i)) entry.name = name;
        entry.isFolder = GSF_IS_INFILE(child.get()) && gsf_infile_num_children(GSF_INFILE(child.get())) >= 0;
        if (entry.isFolder)
            readChildren(GSF_INFILE(child.get()), entry, depth + 1, left);
        else
            entry.bytes = readBytes(child.get());
    }
}

void check(gboolean written) {
    if (written == FALSE) throw RuntimeFailure(failure::spreadsheet, "内存不足，不能生成文件");
}

void writeChildren(const Entry& folder, GsfOutfile* into) {
    gsf_outfile_msole_set_class_id(GSF_OUTFILE_MSOLE(into),
                                   reinterpret_cast<const guint8*>(folder.classId.data()));
    for (const Entry& entry : folder.children) {
        const Held<GsfOutput> child(gsf_outfile_new_child(into, entry.name.c_str(), entry.isFolder));
        if (entry.isFolder)
            writeChildren(entry, GSF_OUTFILE(child.get()));
        else
            check(gsf_output_write(child.get(), entry.bytes.size(),
                                   reinterpret_cast<const guint8*>(entry.bytes.data())));
        check(gsf_output_close(child.get()));
    }
}

}  // namespace

Entry readContainer(std::string_view file) {
    gsf_init();
    const Warnings warnings;
    const Held<GsfInput> input(gsf_input_memory_new(reinterpret_cast<const guint8*>(file.data()),
                                                    static_cast<gsf_off_t>(file.size()), FALSE));
    const Held<GsfInfile> compound(gsf_infile_msole_new(input.get(), nullptr));
    if (!compound) throw RuntimeFailure(failure::spreadsheet, "文件不是 .xls 格式的工作簿");
    Entry root;
    root.isFolder = true;
    int left = mostEntries;
    readChildren(compound.get(), root, 0, left);
    if (warnings.any()) damaged();
    return root;
}

std::string writeContainer(const Entry& root) {
    gsf_init();
    const Held<GsfOutput> sink(gsf_output_memory_new());
    {
        const Held<GsfOutfile> compound(gsf_outfile_msole_new(sink.get()));
        writeChildren(root, compound.get());
        check(gsf_output_close(GSF_OUTPUT(compound.get())));
    }
    const auto* bytes =
        reinterpret_cast<const char*>(gsf_output_memory_get_bytes(GSF_OUTPUT_MEMORY(sink.get())));
    return {bytes, static_cast<std::size_t>(gsf_output_size(sink.get()))};
}

}  // namespace desk::xls
