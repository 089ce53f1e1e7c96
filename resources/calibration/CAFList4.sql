-- The calibration module catalogue, as far as its content is known to this tree:
-- the full schema and indices, the version, the makers, and the rows of the two
-- modules that travel inside the library. The product's full catalogue replaces
-- this file's output when the build is given UTILSDLL_CALIBRATION_DIR.
PRAGMA page_size = 4096;
PRAGMA encoding = 'UTF-8';

BEGIN TRANSACTION;

CREATE TABLE Metadata (id INTEGER PRIMARY KEY, key TEXT, value TEXT);
CREATE TABLE Maker (id INTEGER PRIMARY KEY, name TEXT);
-- Body.id is neither a key nor unique: one camera may be known under two identifiers.
CREATE TABLE Body (id INTEGER, maker INTEGER, model TEXT, identifier TEXT);
CREATE TABLE Module (
    id INTEGER PRIMARY KEY,
    cid TEXT,
    body INTEGER,
    name TEXT,
    fmin FLOAT,
    fmax FLOAT,
    amin FLOAT,
    amax FLOAT,
    lens_id TEXT,
    lens_name TEXT,
    bridge INTEGER,
    raw_only INTEGER,
    rgb_only INTEGER,
    lens_id_thumbnail INTEGER
);

CREATE INDEX body_id_idx ON Body (id);
CREATE INDEX body_identifier_idx ON Body (identifier);
CREATE INDEX body_maker_idx ON Body (maker);
CREATE INDEX module_body_idx ON Module (body);
CREATE INDEX module_bridge_idx ON Module (bridge);
CREATE INDEX module_cid_idx ON Module (cid);
CREATE INDEX module_fmax_idx ON Module (fmax);
CREATE INDEX module_fmin_idx ON Module (fmin);
CREATE INDEX module_lens_id_idx ON Module (lens_id);
CREATE INDEX module_raw_only_idx ON Module (raw_only);
CREATE INDEX module_rgb_only_idx ON Module (rgb_only);

INSERT INTO Metadata (id, key, value) VALUES (1, 'Version', '400.2.0.2');

INSERT INTO Maker (id, name) VALUES
    (1, 'Apple'), (2, 'Canon'), (3, 'DJI'), (4, 'Vexa'), (5, 'Fujifilm'), (6, 'GoPro'),
    (7, 'Hasselblad'), (8, 'Kodak'), (9, 'Konica'), (10, 'Leica'), (11, 'Nikon'), (12, 'Nokia'),
    (13, 'Olympus'), (14, 'Panasonic'), (15, 'Pentax'), (16, 'Ricoh'), (17, 'Samsung'), (18, 'Sony');

INSERT INTO Body (id, maker, model, identifier) VALUES
    (389, 2, 'EOS 5DS', 'Canon5DS'),
    (491, 3, 'Phantom 4', 'Phantom4'),
    (491, 3, 'Phantom 4', 'DJIPhantom4');

-- "NULL" is text standing for "no name", not an SQL null.
INSERT INTO Module (id, cid, body, name, fmin, fmax, amin, amax, lens_id, lens_name,
                    bridge, raw_only, rgb_only, lens_id_thumbnail) VALUES
    (10592, 'C36841a_000', 389, 'Sigma 15mm f/2.8 EX Diagonal Fisheye', 15, 15, 0, 0, '32', 'NULL',
     0, 0, 0, 15),
    (10598, 'C35830b_002', 389, 'Canon EF16-35mm f/2.8L II USM', 16, 35, 0, 0, '246',
     'EF16-35mm f/2.8L II USM', 0, 0, 0, 112);

COMMIT;

ANALYZE;
