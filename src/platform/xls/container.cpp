#include "platform/xls/container.h"

#include <gsf/gsf-output-impl.h>
#include <gsf/gsf.h>

#include <algorithm>
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
            entry.parts.push_back(readBytes(child.get()));
    }
}

/// Lets the library write into a file in the making.
struct FileOutput {
    GsfOutput base;
    NewFile* file;
};
struct FileOutputClass {
    GsfOutputClass base;
};

NewFile& fileOf(GsfOutput* output) {
    return *reinterpret_cast<FileOutput*>(output)->file;
}

void describeFileOutput(gpointer classOf, gpointer) {
    auto* described = static_cast<GsfOutputClass*>(classOf);
    described->Close = [](GsfOutput*) -> gboolean { return TRUE; };
    described->Write = [](GsfOutput* output, size_t size, const guint8* bytes) -> gboolean {
        return fileOf(output).write({reinterpret_cast<const char*>(bytes), size}) ? TRUE : FALSE;
    };
    described->Seek = [](GsfOutput* output, gsf_off_t offset, GSeekType whence) -> gboolean {
        const gsf_off_t from = whence == G_SEEK_CUR   ? gsf_output_tell(output)
                               : whence == G_SEEK_END ? gsf_output_size(output)
                                                      : 0;
        return fileOf(output).seek(static_cast<std::uint64_t>(from + offset)) ? TRUE : FALSE;
    };
}

Held<GsfOutput> outputInto(NewFile& file) {
    static const GType type =
        g_type_register_static_simple(GSF_OUTPUT_TYPE, "TenantDeskFileOutput", sizeof(FileOutputClass),
                                      describeFileOutput, sizeof(FileOutput), nullptr, G_TYPE_FLAG_NONE);
    auto* output = static_cast<FileOutput*>(g_object_new(type, nullptr));
    output->file = &file;
    return Held<GsfOutput>(&output->base);
}

class MemoryFile final : public NewFile {
  public:
    bool write(std::string_view written) override {
        bytes.resize(std::max(bytes.size(), place_ + written.size()));
        bytes.replace(place_, written.size(), written);
        place_ += written.size();
        return true;
    }
    bool seek(std::uint64_t position) override {
        place_ = position;
        return true;
    }
    std::string bytes;

  private:
    std::size_t place_ = 0;
};

bool writeChildren(const Entry& folder, GsfOutfile* into) {
    gsf_outfile_msole_set_class_id(GSF_OUTFILE_MSOLE(into),
                                   reinterpret_cast<const guint8*>(folder.classId.data()));
    for (const Entry& entry : folder.children) {
        const Held<GsfOutput> child(gsf_outfile_new_child(into, entry.name.c_str(), entry.isFolder));
        bool written = !entry.isFolder || writeChildren(entry, GSF_OUTFILE(child.get()));
        for (const std::string& part : entry.parts)
            written = written && gsf_output_write(child.get(), part.size(),
                                                  reinterpret_cast<const guint8*>(part.data())) != FALSE;
        if (gsf_output_close(child.get()) == FALSE || !written) return false;
    }
    return true;
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

bool writeContainer(const Entry& root, NewFile& file) {
    gsf_init();
    const Held<GsfOutput> sink = outputInto(file);
    const Held<GsfOutfile> compound(gsf_outfile_msole_new(sink.get()));
    const bool written = writeChildren(root, compound.get());
    return gsf_output_close(GSF_OUTPUT(compound.get())) != FALSE && written;
}

std::string writeContainer(const Entry& root) {
    MemoryFile file;
    writeContainer(root, file);
    return std::move(file.bytes);
}

}  // namespace desk::xls
