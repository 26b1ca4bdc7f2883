meta:
  id: ruhx
  title: VPD load module image, as kelvra writes it
  file-extension: ruhx
  endian: be
doc: |
  A load module (LID) with the headers of its replaceable unit (RU) in front. Texts are EBCDIC and stand here as bytes:
  docs/format.md has the table of characters, and tells what the fields mean. Of an image that is damaged only a reader
  that compares the fields can tell where the records are; this description takes symbol_table_offset and ru_length at
  their word.
doc-ref: docs/format.md
seq:
  - id: file_header
    type: file_header
  - id: auxiliary_header
    type: auxiliary_header
  - id: vpd_header
    type: vpd_header
  - id: ssd_header
    type: ssd_header
  - id: fill
    size: 240
  - id: long_name
    type: long_name
    if: is_long_name
  - id: section_header
    type: section_header
instances:
  len_header_block:
    value: file_header.symbol_table_offset - vpd_header.ru_length - 88
    doc: From the VPD header to the long name. The file header's count of bytes has only its lower 16 bits.
  is_long_name:
    value: len_header_block > 512
  ofs_lid:
    value: 88 + len_header_block
  lid:
    pos: ofs_lid
    size: vpd_header.ru_length
    doc: Read when asked for, as is all that follows.
  lid_begin:
    pos: ofs_lid
    type: lid_begin
    if: vpd_header.ru_length >= 104
  len_lid_header:
    value: >-
      vpd_header.ru_length < 104 or lid_begin.magic_number != 0x0222 ? 0
      : lid_begin.version == 2
      ? (lid_begin.header_length < 2 ? 0 : lid_begin.header_length < 104 ? lid_begin.header_length : 104)
      : (lid_begin.phylum_length < vpd_header.ru_length - 104 ? 104 + lid_begin.phylum_length : vpd_header.ru_length)
  lid_header:
    pos: ofs_lid
    size: len_lid_header
    type: lid_header
    if: len_lid_header > 0
types:
  file_header:
    seq:
      - {id: magic_number, type: u2, valid: 0x01df}
      - {id: number_of_sections, type: u2}
      - {id: time_date, type: u4, doc: 'Seconds since 1970-01-01 00:00 UTC, modulo 2^32'}
      - {id: symbol_table_offset, type: u4, doc: The end of the file; there is no symbol table}
      - {id: number_of_symbols, type: u4}
      - {id: number_of_optional_header_bytes, type: u2}
      - {id: flags, type: u2}
  auxiliary_header:
    seq:
      - {id: magic_number, type: u2, valid: 0x010b}
      - {id: version_stamp, type: u2}
      - {id: text_size, type: u4}
      - {id: initialised_data_size, type: u4}
      - {id: uninitialised_data_size, type: u4}
      - {id: entry_point, type: u4}
      - {id: text_start, type: u4}
      - {id: data_start, type: u4}
  vpd_header:
    seq:
      - {id: ru_length, type: u4, doc: Of the LID, valid: {max: _root.file_header.symbol_table_offset - 600}}
      - {id: reserved1, size: 4}
      - {id: ru_name, size: 8}
      - {id: reserved2, size: 9}
      - {id: vpd_constant, contents: [0xe5, 0xd7, 0xc4], doc: VPD}
      - {id: ru_load_id, size: 4, doc: '8 hexadecimal digits, the first one in the high half'}
      - {id: reserved3, size: 5}
      - {id: product_id, size: 7}
      - {id: primary_function_group_id, size: 4}
      - {id: secondary_function_group_id, size: 4}
      - {id: reserved4, size: 4}
      - {id: flags1, type: flags1}
      - {id: flags2, type: flags2}
      - {id: development_lab_id, size: 2}
      - {id: ru_date, size: 8, doc: YYYYMMDD in local time}
      - {id: ru_time, size: 6, doc: hhmmss in local time}
      - {id: reserved5, size: 14}
      - {id: version_level, size: 4}
      - {id: release_modification_level, size: 4}
      - {id: reserved6, size: 44}
      - {id: vpd_body_offset, type: u4, doc: From the beginning of the VPD header}
      - {id: reserved7, size: 4}
      - {id: ssd_offset, type: u4, doc: From the beginning of the VPD header}
      - {id: reserved8, size: 4}
      - {id: reserved9, size: 4}
      - {id: reserved10, size: 44}
  flags1:
    seq:
      - {id: reserved1, type: b1}
      - {id: hardware_dependency, type: b1}
      - {id: software_dependency, type: b1}
      - {id: change_lid, type: b1}
      - {id: self_load, type: b1}
      - {id: flash_load, type: b1}
      - {id: body_type, type: b2, enum: body_type}
      - {id: reserved2, type: b3}
      - {id: reserved3, type: b5}
      - {id: reserved4, type: b10}
      - {id: load_id_present, type: b1}
      - {id: base_load, type: b1}
      - {id: reserved5, type: b4}
  flags2:
    seq:
      - {id: software_type, type: b1, enum: software_type}
      - {id: reserved1, type: b3}
      - {id: reserved2, type: b4}
      - {id: developed_by_velmor, type: b1, doc: 1 when it is not}
      - {id: developed_for_velmor, type: b1, doc: 1 when it is not}
      - {id: reserved3, type: b6}
  ssd_header:
    seq:
      - {id: reserved1, size: 24}
      - {id: nucleus_sequence_control, size: 4}
      - {id: reserved2, size: 4}
      - {id: ru_name, size: 8, if: not _root.is_long_name}
      - {id: long_name, type: name_place, if: _root.is_long_name}
      - {id: link_loader_bypass, type: u1, doc: '1 Y, 0 N'}
      - {id: ru_destination, type: u1, enum: ru_destination}
      - {id: delete_ru, type: u1, doc: '1 Y, 0 N'}
      - {id: online_ll_flag, type: u1, doc: '1 Y, 0 N'}
      - {id: ru_type_option, type: u1, enum: ru_type_option}
      - {id: ssd_model, type: u1, enum: ssd_model}
      - {id: allow_breakpoints, type: u1, doc: '1 Y, 0 N'}
      - {id: reserved3, size: 17}
  name_place:
    seq:
      - {id: reserved, size: 4}
      - {id: ru_name_offset, type: u4, doc: From the beginning of the VPD header}
  long_name:
    seq:
      - {id: base_name, size: _root.len_header_block - 513, doc: May hold zero bytes}
      - {id: terminator, size: 1}
  section_header:
    seq:
      - {id: name, size: 8}
      - {id: physical_address, type: u4}
      - {id: virtual_address, type: u4}
      - {id: number_of_raw_data_bytes, type: u4}
      - {id: offset_to_raw_data, type: u4}
      - {id: relocation_offset, type: u4}
      - {id: line_number_offset, type: u4}
      - {id: number_of_relocations, type: u2}
      - {id: number_of_line_numbers, type: u2}
      - {id: flags, type: u4}
  lid_begin:
    doc: What tells whether the LID has a header, and how long it is.
    seq:
      - {id: magic_number, type: u2}
      - {id: version, type: u2}
      - {id: skipped1, size: 20}
      - {id: header_length, type: u4}
      - {id: skipped2, size: 74}
      - {id: phylum_length, type: u2}
  lid_header:
    doc: In version 2 it ends after header_length bytes, and the fields that do not fit in them are not there.
    seq:
      - {id: magic_number, type: u2, if: _io.size >= 2}
      - {id: version, type: u2, if: _io.size >= 4}
      - {id: lid_number, size: 4, if: _io.size >= 8, doc: 8 hexadecimal digits}
      - {id: lid_date_time, size: 6, if: _io.size >= 14, doc: 'Digits YYYYMMDDhhmm, two a byte'}
      - {id: lid_class, type: u2, if: _io.size >= 16}
      - {id: crc, type: u4, if: _io.size >= 20}
      - {id: lid_length, type: u4, if: _io.size >= 24}
      - {id: header_length, type: u4, if: _io.size >= 28}
      - {id: mtd_number, type: u1, if: _io.size >= 29}
      - {id: flags1, type: u1, if: _io.size >= 30}
      - {id: reserved, type: u1, if: _io.size >= 31}
      - {id: flags2, type: u1, if: _io.size >= 32}
      - {id: lid_info, size: 64, if: _io.size >= 96, doc: ASCII}
      - {id: lid_update_time, size: 6, if: _io.size >= 102, doc: 'Digits YYYYMMDDhhmm, two a byte'}
      - {id: phylum_length, type: u2, if: _io.size >= 104}
      - {id: phylum_data, size-eos: true, if: _io.size > 104}
enums:
  body_type: {0: code, 1: sfginfo, 2: pfginfo, 3: vpdinfo}
  software_type: {0: lpp, 1: mcg}
  ru_type_option: {1: vorn, 2: lid}
  ru_destination:
    0: none
    1: nuc1
    2: nuc2
    3: serv
    4: ide
    5: ibla
    6: dbla
    7: cbla
    8: mri
    9: pbla
    10: rull
    11: su36
    12: nuc3
    14: sbla
    15: nucp
    16: mach
    17: mchp
    32: user
    33: usrp
    49: hyp1
    50: hyp2
    52: nucb
    64: {id: mcg, -orig-id: '*MCG'}
    80: phyp1
    81: pnuc1
    82: pdbla
    83: phyp2
    84: pnuc2
    85: pcbla
    86: pibla
    129: iop1
    130: iop2
    132: iop3
    136: iop4
  ssd_model:
    0: none
    1: vant0
    2: tride
    3: harn
    4: vantl
    5: {id: vant4, doc: Also VNT41}
    6: trid1
    7: losk
    8: {id: van41, doc: Also VNTA4}
    9: tolven
    10: glova
    11: braxen
    12: quentaris
    13: braxen_tpa
    14: quentaris_tpa
    16: fenrix
    17: tervascopin
