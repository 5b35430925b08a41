#include "typ/header.h"

#include <algorithm>

namespace quillmark {
namespace {

// The order of the fields, shared by reading and writing.
template <typename Io, typename Header>
void baseFields(Io& io, Header& h) {
    io(h.headerSize, h.magic, h.version);
    io(h.year, h.month, h.day, h.hour, h.minute, h.second);
    io(h.codePage, h.poiData, h.polylineData, h.polygonData);
    io(h.FID, h.ProductCode);
    io(h.poiIndex, h.polylineIndex, h.polygonIndex, h.drawOrder);
}

template <typename Io, typename Header>
void extraPoiFields(Io& io, Header& h) {
    io(h.index, h.flags, h.data);
}

template <typename Io, typename Header>
void labelsFields(Io& io, Header& h) {
    io(h.unknown1, h.strings, h.entrySizeA, h.entrySizeB);
    io(h.tableA, h.unknown2, h.tableB, h.unknown3);
}

class FieldReader {
  public:
    explicit FieldReader(ByteView bytes) : cursor_(bytes) {}
    template <typename... Fields>
    void operator()(Fields&... fields) {
        (read(fields), ...);
    }

  private:
    void read(std::uint8_t& value) { value = cursor_.u8(); }
    void read(std::uint16_t& value) { value = cursor_.u16(); }
    void read(std::uint32_t& value) { value = cursor_.u32(); }
    void read(SectionPlace& place) { (*this)(place.offset, place.size); }
    void read(IndexPlace& place) { (*this)(place.offset, place.entrySize, place.size); }
    template <typename T, std::size_t N>
    void read(std::array<T, N>& bytes) {
        for (T& byte : bytes) {
            byte = static_cast<T>(cursor_.u8());
        }
    }

    ByteReader cursor_;
};

class FieldWriter {
  public:
    explicit FieldWriter(ByteWriter& writer) : writer_(writer) {}
    template <typename... Fields>
    void operator()(const Fields&... fields) {
        (write(fields), ...);
    }

  private:
    void write(std::uint8_t value) { writer_.u8(value); }
    void write(std::uint16_t value) { writer_.u16(value); }
    void write(std::uint32_t value) { writer_.u32(value); }
    void write(const SectionPlace& place) { (*this)(place.offset, place.size); }
    void write(const IndexPlace& place) { (*this)(place.offset, place.entrySize, place.size); }
    template <typename T, std::size_t N>
    void write(const std::array<T, N>& bytes) {
        for (const T byte : bytes) {
            writer_.u8(static_cast<std::uint8_t>(byte));
        }
    }

    ByteWriter& writer_;
};

// The bytes of one part, with zeros for what the file lacks.
template <std::size_t Start, std::size_t End>
std::array<std::uint8_t, End - Start> partBytes(ReadContext& context) {
    std::array<std::uint8_t, End - Start> bytes{};
    context.guarded([&] { ByteReader(context.file(), Start).fill(bytes); });
    return bytes;
}

}  // namespace

std::size_t writtenHeaderSize(std::int32_t TailleEntete) {
    return static_cast<std::size_t>(std::clamp<std::int32_t>(TailleEntete, kBaseHeaderEnd, 0xFFFF));
}

std::size_t understoodHeaderSize(std::size_t headerSize) {
    for (const std::size_t end :
         {kActiveRoutingHeaderEnd, kBlocHeaderEnd, kLabelsHeaderEnd, kExtraPoiHeaderEnd}) {
        if (headerSize >= end) {
            return end;
        }
    }
    return kBaseHeaderEnd;
}

void readBaseHeader(ReadContext& context, Document& document) {
    const auto bytes = partBytes<0, kBaseHeaderEnd>(context);
    FieldReader io(bytes);
    baseFields(io, document.EnteteTYP);
    document.TailleEntete = document.EnteteTYP.headerSize;
}

void readHeaderExtensions(ReadContext& context, Document& document) {
    const std::size_t size = document.EnteteTYP.headerSize;
    if (size >= kExtraPoiHeaderSeen) {
        const auto bytes = partBytes<kBaseHeaderEnd, kExtraPoiHeaderEnd>(context);
        FieldReader io(bytes);
        extraPoiFields(io, document.EnteteExtraPOI);
    }
    if (size >= kLabelsHeaderEnd) {
        const auto bytes = partBytes<kExtraPoiHeaderEnd, kLabelsHeaderEnd>(context);
        FieldReader io(bytes);
        labelsFields(io, document.EnteteLabels);
    }
    if (size >= kBlocHeaderEnd) {
        const auto bytes = partBytes<kLabelsHeaderEnd, kBlocHeaderEnd>(context);
        FieldReader io(bytes);
        io(document.EnteteBloc.bloc);
    }
    if (size >= kActiveRoutingHeaderEnd) {
        const auto bytes = partBytes<kBlocHeaderEnd, kActiveRoutingHeaderEnd>(context);
        FieldReader io(bytes);
        io(document.EnteteActiveRouting.index);
    }
    const std::size_t understood = understoodHeaderSize(size);
    const std::size_t end = std::min(size, context.file().size());
    if (understood < end) {
        const ByteView unknown = context.file().subspan(understood, end - understood);
        document.EnteteInconnu.assign(unknown.begin(), unknown.end());
        context.charge(unknown.size());
    }
}

Bytes encodeHeader(const Document& document) {
    const std::size_t size = writtenHeaderSize(document.TailleEntete);
    const std::size_t understood = understoodHeaderSize(size);
    ByteWriter writer;
    writer.reserve(size);
    FieldWriter io(writer);
    baseFields(io, document.EnteteTYP);
    if (understood >= kExtraPoiHeaderEnd) {
        extraPoiFields(io, document.EnteteExtraPOI);
    }
    if (understood >= kLabelsHeaderEnd) {
        labelsFields(io, document.EnteteLabels);
    }
    if (understood >= kBlocHeaderEnd) {
        io(document.EnteteBloc.bloc);
    }
    if (understood >= kActiveRoutingHeaderEnd) {
        io(document.EnteteActiveRouting.index);
    }
    writer.bytes(ByteView(document.EnteteInconnu)
                     .first(std::min(document.EnteteInconnu.size(), size - understood)));
    writer.zeros(size - writer.position());
    return writer.release();
}

}  // namespace quillmark
