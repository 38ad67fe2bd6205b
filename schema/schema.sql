-- Quillorne database schema, one source for the embedded database (SQLite) and PostgreSQL.
--
-- The program rewrites a few tokens per backend before it runs the statements:
--   @KEY@    generated 64-bit primary key; it must be the first column of its table
--   @REF@    a 64-bit reference to such a key
--   @MONEY@  exact money, four decimals
--   @BOOL@   a yes/no flag held as 1/0, never NULL, 0 unless written
-- Lines between "-- @embedded-only" and "-- @end" exist only in the embedded database;
-- lines between "-- @postgres-only" and "-- @end" only on PostgreSQL.
--
-- Identifiers stay unquoted: PostgreSQL folds them to lower case and SQLite ignores case,
-- so the mixed spellings the screens use (Person_ID, person_id) name the same column.

-- Organisation -----------------------------------------------------------------------------

CREATE TABLE Company (
    Company_ID @KEY@,
    Company_Name TEXT,
    address1 TEXT,
    address2 TEXT,
    address3 TEXT,
    Tel_NO TEXT,
    fax TEXT,
    MD_Name TEXT,
    MD_Phone TEXT,
    PA_Name TEXT,
    PA_Phone TEXT,
    Compliance_name TEXT,
    Compliance_Phone TEXT,
    IT_Name TEXT,
    IT_Phone TEXT,
    Finance_Name TEXT,
    Finance_Phone TEXT
);

-- Screens that read "select *" take the name from the second column of these three.
CREATE TABLE Department (
    Department_ID @KEY@,
    Department TEXT
);

CREATE TABLE Location (
    Location_ID @KEY@,
    Location TEXT
);

CREATE TABLE Position (
    PositionID @KEY@,
    Position_name TEXT
);

CREATE TABLE EthOrigin (
    origin TEXT NOT NULL
);

-- Employees --------------------------------------------------------------------------------

-- "select * from person" readers take first names from the second column and the surname
-- from the third, so these three stay first and in this order.
CREATE TABLE Person (
    Person_ID @KEY@,
    firstnames TEXT,
    surname TEXT,
    Title TEXT,
    DOB DATE,
    MaritalStatus TEXT,
    Dependents TEXT,
    NI_Number TEXT,
    address1 TEXT,
    address2 TEXT,
    address3 TEXT,
    PostCode TEXT,
    phone TEXT,
    NOK1_Name TEXT,
    NOK1_Relationship TEXT,
    NOK1_Address TEXT,
    NOK1_Home_PH TEXT,
    NOK1_Mobile_PH TEXT,
    NOK2_Name TEXT,
    NOK2_Relationship TEXT,
    NOK2_Address TEXT,
    NOK2_Home_PH TEXT,
    NOK2_Mobile_PH TEXT,
    startdate DATE,
    Employment_Type TEXT,
    Recruitment TEXT,
    EthOrigin TEXT,
    Nationality TEXT,
    Location_ID @REF@ REFERENCES Location (Location_ID),
    Department_ID @REF@ REFERENCES Department (Department_ID),
    Position_ID @REF@ REFERENCES Position (PositionID),
    Company_ID @REF@ REFERENCES Company (Company_ID),
    salary @MONEY@,
    JHDate DATE,
    jhnote TEXT,
    firstaider @BOOL@,
    firstaiderdate DATE,
    MedCover TEXT,
    MedCoCost @MONEY@,
    MedEmpCost @MONEY@,
    PensionEF DATE,
    CompCon NUMERIC(9,4),
    EmpCon NUMERIC(9,4),
    blncompfig @BOOL@,
    blnempfig @BOOL@,
    LifeCover TEXT,
    PHICover TEXT,
    LifeLevel TEXT,
    PHILevel TEXT,
    BankName TEXT,
    BankADD1 TEXT,
    BankADD2 TEXT,
    BankADD3 TEXT,
    BankPC TEXT,
    AccName TEXT,
    AccNo TEXT,
    SortCode TEXT,
    IsManager @BOOL@,
    Line_Manager TEXT,
    FullTime TEXT,
    EmpHours NUMERIC(9,2),
    DaysHoliday NUMERIC(9,2),
    AllocationDate DATE,
    DeAllocationDate DATE,
    RegNo TEXT,
    CarGrade TEXT,
    CarCategory TEXT,
    CarTrade TEXT,
    CarTradeMoney @MONEY@,
    PetrolAllowance @MONEY@,
    CarAllowance @MONEY@,
    extno TEXT,
    HasLeft @BOOL@,
    finishdate DATE,
    ExitIntDate DATE,
    FinReason TEXT,
    ExitInt TEXT,
    ExitNotes TEXT,
    blndeleted @BOOL@,
    -- Set while a new employee is being entered (written early so that its lists have a
    -- parent); such a row is hidden like a deleted one, and one left by a program that
    -- ended mid-entry is removed at a later start. NULL for every real employee.
    provisional_since TIMESTAMP
);

CREATE INDEX person_surname ON Person (surname);
-- The telephone directory reads its rows from this index alone on every key stroke.
CREATE INDEX person_directory ON Person (surname, firstnames, extno, HasLeft, blndeleted, Person_ID);
CREATE INDEX person_company ON Person (Company_ID);
CREATE INDEX person_department ON Person (Department_ID);
CREATE INDEX person_location ON Person (Location_ID);
CREATE INDEX person_position ON Person (Position_ID);

-- Employees are soft-deleted, so their records can refer to them without cascading.
CREATE TABLE JobHistory (
    JobHistory_ID @KEY@,
    person_id @REF@ NOT NULL REFERENCES Person (Person_ID),
    date_from DATE,
    date_to DATE,
    Position TEXT,
    salary @MONEY@,
    notes TEXT
);

CREATE INDEX jobhistory_person ON JobHistory (person_id, date_from);

CREATE TABLE Holiday (
    holiday_ID @KEY@,
    person_id @REF@ NOT NULL REFERENCES Person (Person_ID),
    date_from DATE,
    date_to DATE,
    days NUMERIC(9,2),
    notes TEXT
);

CREATE INDEX holiday_person_dates ON Holiday (person_id, date_from, date_to);
CREATE INDEX holiday_dates ON Holiday (date_from, date_to);
-- A month's or a range's bookings are found from their last day: few end after a given day.
-- It carries what the attendance grid reads, so the grid never visits the table itself.
CREATE INDEX holiday_ends ON Holiday (date_to, date_from, person_id, days);

-- reason is an Absence_Lookup code or "A" (unauthorised), which has no lookup row.
CREATE TABLE Absence (
    absence_ID @KEY@,
    person_id @REF@ NOT NULL REFERENCES Person (Person_ID),
    startdate DATE,
    enddate DATE,
    days NUMERIC(9,2),
    reason VARCHAR(5),
    notes TEXT
);

CREATE INDEX absence_person_dates ON Absence (person_id, startdate, enddate);
CREATE INDEX absence_dates ON Absence (startdate, enddate);
CREATE INDEX absence_ends ON Absence (enddate, startdate, person_id, days, reason);

CREATE TABLE Absence_Lookup (
    Code VARCHAR(5) NOT NULL PRIMARY KEY,
    Reason TEXT
);

CREATE TABLE Appraisal (
    Appraisal_ID @KEY@,
    person_id @REF@ NOT NULL REFERENCES Person (Person_ID),
    ADate DATE,
    Manager TEXT,
    Rating TEXT,
    notes TEXT
);

CREATE INDEX appraisal_person ON Appraisal (person_id);

CREATE TABLE Reprimands (
    Reprimand_ID @KEY@,
    person_id @REF@ NOT NULL REFERENCES Person (Person_ID),
    Date DATE,
    Action TEXT,
    reason TEXT,
    notes TEXT
);

CREATE INDEX reprimands_person ON Reprimands (person_id);

CREATE TABLE Notes (
    Note_ID @KEY@,
    person_id @REF@ NOT NULL REFERENCES Person (Person_ID),
    Date DATE,
    Description TEXT
);

CREATE INDEX notes_person ON Notes (person_id);

-- Document holds the path of a file kept outside the database.
CREATE TABLE Document (
    document_id @KEY@,
    person_id @REF@ NOT NULL REFERENCES Person (Person_ID),
    Date DATE,
    Title TEXT,
    notes TEXT,
    Document TEXT
);

CREATE INDEX document_person ON Document (person_id);

-- Helpdesk ---------------------------------------------------------------------------------

CREATE TABLE CallAction (
    Action TEXT NOT NULL
);

CREATE TABLE CallStatus (
    Status TEXT NOT NULL
);

CREATE TABLE Faults (
    Fault_Types TEXT NOT NULL
);

-- Fault_Type and currentstatus are copies of lookup texts, compared by value.
CREATE TABLE HelpdeskCalls (
    Call_ID @KEY@,
    person_id @REF@ REFERENCES Person (Person_ID),
    Fault_Type TEXT,
    Date_Logged DATE,
    Date_Required DATE,
    Description VARCHAR(400),
    Resolution VARCHAR(400),
    currentstatus TEXT,
    Software_ID @REF@,
    computer_id @REF@,
    peripheral_ID @REF@,
    DateClosed DATE
);

CREATE INDEX helpdeskcalls_person ON HelpdeskCalls (person_id);
CREATE INDEX helpdeskcalls_status ON HelpdeskCalls (currentstatus, Date_Logged);
CREATE INDEX helpdeskcalls_computer ON HelpdeskCalls (computer_id);
CREATE INDEX helpdeskcalls_peripheral ON HelpdeskCalls (peripheral_ID);

-- Calls are never deleted and their history is only added to.
CREATE TABLE CallHistory (
    CallHistory_ID @KEY@,
    Call_ID @REF@ NOT NULL REFERENCES HelpdeskCalls (Call_ID),
    Date TIMESTAMP,
    Action TEXT,
    Status TEXT
);

CREATE INDEX callhistory_call ON CallHistory (Call_ID, Date);

-- Assets -----------------------------------------------------------------------------------

-- One invoice row per asset; no two assets share one.
CREATE TABLE Invoices (
    Invoice_ID @KEY@,
    InvoiceDate DATE,
    InvoiceNumber VARCHAR(10),
    Price @MONEY@
);

-- supplier_id of computers and peripherals is cleared, not guarded, when a supplier goes.
CREATE TABLE Computers (
    Computer_ID @KEY@,
    Manufacturer VARCHAR(35),
    Model VARCHAR(35),
    SerialNumber VARCHAR(25),
    AssetNumber VARCHAR(15),
    ComputerName VARCHAR(20),
    Ram VARCHAR(10),
    HardDrive VARCHAR(10),
    WarrantyLength VARCHAR(2),
    WarrantyRef VARCHAR(20),
    wcontactno VARCHAR(25),
    notes VARCHAR(400),
    supplier_id @REF@,
    Invoice_ID @REF@,
    person_id @REF@ REFERENCES Person (Person_ID)
);

CREATE INDEX computers_person ON Computers (person_id);
CREATE INDEX computers_supplier ON Computers (supplier_id);
CREATE INDEX computers_name ON Computers (ComputerName);

CREATE TABLE Supplier (
    Supplier_ID @KEY@,
    Name TEXT,
    address1 TEXT,
    address2 TEXT,
    address3 TEXT,
    pcode TEXT,
    phone TEXT,
    contact TEXT,
    fax TEXT,
    email TEXT
);

CREATE INDEX supplier_name ON Supplier (Name);

-- Licenses NULL: never licensed. licensesused may go below zero.
CREATE TABLE Software (
    Software_ID @KEY@,
    Manufacturer VARCHAR(25),
    Product VARCHAR(35),
    Version VARCHAR(25),
    Licenses INTEGER,
    licensesused INTEGER,
    Price @MONEY@,
    Invoice_ID @REF@,
    supplier_id @REF@ REFERENCES Supplier (Supplier_ID)
);

CREATE INDEX software_supplier ON Software (supplier_id);

CREATE TABLE ComputerSoftware (
    ComputerSoftware_ID @KEY@,
    Software_ID @REF@,
    computer_id @REF@
);

CREATE INDEX computersoftware_computer ON ComputerSoftware (computer_id);
CREATE INDEX computersoftware_software ON ComputerSoftware (Software_ID);

CREATE TABLE PeripheralType (
    Type TEXT NOT NULL
);

CREATE TABLE Peripherals (
    peripheral_ID @KEY@,
    Type TEXT,
    Manufacturer VARCHAR(20),
    Model VARCHAR(20),
    SerialNo VARCHAR(20),
    AssetNo VARCHAR(20),
    Location VARCHAR(20),
    Size TEXT,
    PrinterType TEXT,
    ipaddress VARCHAR(15),
    warrantyl INTEGER,
    warrantycon VARCHAR(20),
    WarrantyRef VARCHAR(10),
    daterecieved DATE,
    Invoice_ID @REF@,
    supplier_id @REF@,
    computer_id @REF@,
    BlnDeleted @BOOL@
);

CREATE INDEX peripherals_type ON Peripherals (Type);
CREATE INDEX peripherals_computer ON Peripherals (computer_id);
CREATE INDEX peripherals_supplier ON Peripherals (supplier_id);

-- Suppliers and directory ------------------------------------------------------------------

CREATE TABLE services (
    service_id @KEY@,
    service TEXT
);

-- Deleting a supplier leaves its service and office rows behind, so supplier_id is no
-- foreign key here; a service in use cannot go.
CREATE TABLE supplierservices (
    supplierservices_id @KEY@,
    supplier_id @REF@,
    Services_ID @REF@ REFERENCES services (service_id)
);

CREATE INDEX supplierservices_supplier ON supplierservices (supplier_id);
CREATE INDEX supplierservices_service ON supplierservices (Services_ID);

CREATE TABLE supplieroffice (
    supplieroffice_id @KEY@,
    supplier_id @REF@,
    address1 TEXT,
    address2 TEXT,
    address3 TEXT,
    pcode TEXT,
    fax TEXT,
    phone TEXT,
    contact TEXT,
    email TEXT
);

CREATE INDEX supplieroffice_supplier ON supplieroffice (supplier_id);

CREATE TABLE contact (
    contact_id @KEY@,
    contact_type TEXT,
    firstname TEXT,
    surname TEXT,
    company TEXT,
    contactname TEXT,
    email TEXT,
    fax TEXT,
    phone TEXT
);

CREATE INDEX contact_surname ON contact (surname);
CREATE INDEX contact_directory ON contact (contact_type, surname, firstname, company, phone, contact_id);

-- @postgres-only
-- Type-ahead searches compare lower(name) with the typed beginning; these let PostgreSQL
-- find the beginning in an index instead of reading every row.
CREATE INDEX person_surname_lower ON Person (lower(surname) text_pattern_ops);
CREATE INDEX contact_surname_lower ON contact (lower(surname) text_pattern_ops);
CREATE INDEX contact_company_lower ON contact (lower(company) text_pattern_ops);
CREATE INDEX supplier_name_lower ON Supplier (lower(Name) text_pattern_ops);
-- @end
CREATE INDEX contact_company ON contact (company);

-- Training and petty cash ------------------------------------------------------------------

CREATE TABLE Courses (
    Course_ID @KEY@,
    Title TEXT NOT NULL
);

-- A NULL location, instructor or description breaks the programme list: empty text instead.
CREATE TABLE Training (
    Training_ID @KEY@,
    Course_ID @REF@ REFERENCES Courses (Course_ID),
    TDate DATE,
    Edate DATE,
    TTime VARCHAR(5),
    Location TEXT NOT NULL DEFAULT '',
    Instructor TEXT NOT NULL DEFAULT '',
    Description TEXT NOT NULL DEFAULT '',
    Price @MONEY@,
    BlnDeleted @BOOL@
);

CREATE INDEX training_course ON Training (Course_ID);
CREATE INDEX training_dates ON Training (TDate);
CREATE INDEX training_ends ON Training (Edate, TDate);

-- Bookings are removed by hard delete; programmes are only soft-deleted.
CREATE TABLE PersonTraining (
    person_id @REF@ NOT NULL REFERENCES Person (Person_ID),
    Training_ID @REF@ NOT NULL REFERENCES Training (Training_ID)
);

CREATE INDEX persontraining_person ON PersonTraining (person_id, Training_ID);
CREATE INDEX persontraining_training ON PersonTraining (Training_ID);

-- amount is the text the user typed after its sign: "+12.50", "-3".
CREATE TABLE pettycash (
    pettyid @KEY@,
    Date DATE,
    amount TEXT,
    reason TEXT
);

CREATE INDEX pettycash_date ON pettycash (Date);

-- System -----------------------------------------------------------------------------------

-- One row. A NULL test date means no test is recorded; a NULL length means no reminder.
CREATE TABLE options (
    NoDaysAbsence INTEGER,
    SickBeforeDoc INTEGER,
    baserate INTEGER,
    fireexttest DATE,
    firelength INTEGER,
    pattest DATE,
    patlength INTEGER,
    nodaysbackup INTEGER,
    language VARCHAR(20)
);

-- The login names added through the program, for the list that deletes them.
CREATE TABLE users (
    users VARCHAR(63) NOT NULL PRIMARY KEY
);

-- @embedded-only
-- PostgreSQL keeps its logins as server roles; the embedded database keeps them here.
-- usertype "Admin" may add logins; "User" may not.
CREATE TABLE logins (
    login TEXT NOT NULL PRIMARY KEY,
    pwhash TEXT NOT NULL,
    usertype TEXT NOT NULL DEFAULT 'Admin'
);
-- @end

-- @postgres-only
-- An identity column does not notice rows inserted with explicit keys (a restore, the demo
-- organisation), and its next value would then collide with them. Every keyed table gets a
-- statement trigger that moves its sequence past the highest key inserted, as SQLite's
-- AUTOINCREMENT does by itself. The triggers are added by the program, one per keyed table.
-- It runs as the schema's owner, so users who may insert rows need no rights on sequences.
CREATE FUNCTION quillorne_follow_keys() RETURNS trigger LANGUAGE plpgsql
SECURITY DEFINER SET search_path = pg_catalog, pg_temp AS $$
DECLARE
    seq TEXT := pg_get_serial_sequence(quote_ident(TG_TABLE_SCHEMA) || '.' ||
                                       quote_ident(TG_TABLE_NAME), TG_ARGV[0]);
    highest BIGINT;
BEGIN
    EXECUTE format('SELECT max(%I) FROM quillorne_new_rows', TG_ARGV[0]) INTO highest;
    IF highest IS NOT NULL AND highest > COALESCE(pg_sequence_last_value(seq::regclass), 0) THEN
        PERFORM setval(seq, highest);
    END IF;
    RETURN NULL;
END
$$;
-- @end

-- @postgres-only
-- Logins are server roles. Each is a member of one group role per database, which holds all
-- rights on this database's tables and sequences and nothing elsewhere; logingroup names it.
-- Logins of the type Admin are members of a second role, {database}_admins, which holds no
-- rights of its own but lets them add and remove this database's logins through the two
-- functions below. No login gets CREATEROLE, which would let it grant itself any role of the
-- server. Keep this section last: the grants cover the tables made before it (and, through
-- the default privileges, those the same owner makes later).
CREATE TABLE logingroup (
    rolename TEXT NOT NULL,
    adminrole TEXT NOT NULL
);

-- Both run as the schema's owner, with a search path of the schema and then the temporary
-- tables (set below), so a caller cannot shadow logingroup with a table of their own.
CREATE FUNCTION quillorne_add_login(login TEXT, pass TEXT, is_admin BOOLEAN) RETURNS VOID
LANGUAGE plpgsql SECURITY DEFINER SET search_path = pg_catalog, pg_temp
SET password_encryption = 'scram-sha-256' AS $$
DECLARE
    g TEXT;
    a TEXT;
BEGIN
    SELECT rolename, adminrole INTO STRICT g, a FROM logingroup;
    IF NOT pg_has_role(session_user, a, 'MEMBER') THEN
        RAISE EXCEPTION 'permission denied to add logins to this database'
            USING ERRCODE = '42501';
    END IF;
    EXECUTE format('CREATE ROLE %I LOGIN NOSUPERUSER NOCREATEDB NOCREATEROLE PASSWORD %L',
                   login, pass);
    EXECUTE format('GRANT %I TO %I', g, login);
    IF is_admin THEN
        EXECUTE format('GRANT %I TO %I', a, login);
    END IF;
END
$$;

-- Removes a login of this database only: a member of its group role, never a superuser.
CREATE FUNCTION quillorne_drop_login(login TEXT) RETURNS VOID
LANGUAGE plpgsql SECURITY DEFINER SET search_path = pg_catalog, pg_temp AS $$
DECLARE
    g TEXT;
    a TEXT;
BEGIN
    SELECT rolename, adminrole INTO STRICT g, a FROM logingroup;
    IF NOT pg_has_role(session_user, a, 'MEMBER') THEN
        RAISE EXCEPTION 'permission denied to remove logins of this database'
            USING ERRCODE = '42501';
    END IF;
    IF NOT EXISTS (SELECT 1 FROM pg_auth_members m
                   JOIN pg_roles r ON r.oid = m.member
                   JOIN pg_roles gr ON gr.oid = m.roleid
                   WHERE r.rolname = login AND gr.rolname = g AND NOT r.rolsuper) THEN
        RAISE EXCEPTION 'There is no login named % in this database', login
            USING ERRCODE = '42501';
    END IF;
    EXECUTE format('DROP ROLE %I', login);
END
$$;

DO $$
DECLARE
    g TEXT := left(current_database(), 57) || '_users';
    a TEXT := left(current_database(), 56) || '_admins';
BEGIN
    IF NOT EXISTS (SELECT 1 FROM pg_roles WHERE rolname = g) THEN
        EXECUTE format('CREATE ROLE %I NOLOGIN', g);
    END IF;
    IF NOT EXISTS (SELECT 1 FROM pg_roles WHERE rolname = a) THEN
        EXECUTE format('CREATE ROLE %I NOLOGIN', a);
    END IF;
    -- The schema's owner adds the first logins.
    EXECUTE format('GRANT %I TO %I', a, current_user);
    EXECUTE format('ALTER FUNCTION quillorne_add_login(TEXT, TEXT, BOOLEAN) '
                   'SET search_path = %I, pg_temp', current_schema());
    EXECUTE format('ALTER FUNCTION quillorne_drop_login(TEXT) SET search_path = %I, pg_temp',
                   current_schema());
    EXECUTE format('REVOKE ALL ON FUNCTION quillorne_add_login(TEXT, TEXT, BOOLEAN), '
                   'quillorne_drop_login(TEXT) FROM PUBLIC');
    EXECUTE format('GRANT EXECUTE ON FUNCTION quillorne_add_login(TEXT, TEXT, BOOLEAN), '
                   'quillorne_drop_login(TEXT) TO %I', g);
    EXECUTE format('GRANT CONNECT, TEMPORARY ON DATABASE %I TO %I', current_database(), g);
    EXECUTE format('GRANT USAGE ON SCHEMA %I TO %I', current_schema(), g);
    EXECUTE format('GRANT ALL ON ALL TABLES IN SCHEMA %I TO %I', current_schema(), g);
    EXECUTE format('GRANT ALL ON ALL SEQUENCES IN SCHEMA %I TO %I', current_schema(), g);
    EXECUTE format('ALTER DEFAULT PRIVILEGES IN SCHEMA %I GRANT ALL ON TABLES TO %I',
                   current_schema(), g);
    EXECUTE format('ALTER DEFAULT PRIVILEGES IN SCHEMA %I GRANT ALL ON SEQUENCES TO %I',
                   current_schema(), g);
    INSERT INTO logingroup (rolename, adminrole) VALUES (g, a);
END
$$;
-- @end
