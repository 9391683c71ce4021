-- Version 4 to 5: names of bins. They come when their lots are added again.
-- What lots call their bins: every name that one was given, beside the others. Runs have the number in hard_bin and
-- soft_bin.
CREATE TABLE bin(
  product text NOT NULL, lot text NOT NULL, program text NOT NULL, is_soft smallint NOT NULL, number int NOT NULL,
  name text NOT NULL,
  verdict text NOT NULL, -- 'P' or 'F' for units that passed or failed; else ''
  PRIMARY KEY(product, lot, program, is_soft, number, name, verdict));
GRANT SELECT ON bin TO zyn_viewer, zyn_writer;
GRANT INSERT ON bin TO zyn_writer;
UPDATE archive_meta SET version = 5;
