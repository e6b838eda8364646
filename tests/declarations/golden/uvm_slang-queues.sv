// Types of a type file, declared in SystemVerilog (IEEE 1800-2017). A type file has no signs,
// no bounds of queues, and of a class no methods, constraints and parameters. A name that is
// taken, or missing, has the id of its type at the end.
package types;
    // type 61: class "uvm_pkg::uvm_void"
    class \uvm_pkg::uvm_void ;
    endclass
    // type 8: sequential enumeration "bit": predefined
    // type 4: string "string": predefined
    // type 0: packed array "int": predefined
    // type 66: class "uvm_pkg::uvm_object"
    class \uvm_pkg::uvm_object extends \uvm_pkg::uvm_void ;
        bit use_uvm_seeding; // flagged
        string m_leaf_name;
        int m_inst_id;
        int m_inst_count; // flagged
    endclass
    typedef class \uvm_pkg::uvm_queue#(T=string) ;
    // type 453: typedef "uvm_pkg::uvm_queue::this_type"
    typedef \uvm_pkg::uvm_queue#(T=string) \uvm_pkg::uvm_queue::this_type ;
    // type 454: typedef "uvm_pkg::uvm_queue::T"
    typedef string \uvm_pkg::uvm_queue::T ;
    // type 455: queue ""
    typedef \uvm_pkg::uvm_queue::T type_455 [$];
    // type 452: class "uvm_pkg::uvm_queue#(T=string)"
    class \uvm_pkg::uvm_queue#(T=string) extends \uvm_pkg::uvm_object ;
        \uvm_pkg::uvm_queue::this_type m_global_queue; // flagged
        \uvm_pkg::uvm_queue::T queue [$];
    endclass
    typedef class \uvm_pkg::uvm_queue#(T=uvm_pkg::uvm_hdl_path_concat) ;
    // type 473: typedef "uvm_pkg::uvm_queue::this_type"
    typedef \uvm_pkg::uvm_queue#(T=uvm_pkg::uvm_hdl_path_concat) \uvm_pkg::uvm_queue::this_type_473 ;
    typedef class \uvm_pkg::uvm_hdl_path_concat ;
    // type 478: typedef "uvm_pkg::uvm_queue::T"
    typedef \uvm_pkg::uvm_hdl_path_concat \uvm_pkg::uvm_queue::T_478 ;
    // type 479: queue ""
    typedef \uvm_pkg::uvm_queue::T_478 type_479 [$];
    // type 472: class "uvm_pkg::uvm_queue#(T=uvm_pkg::uvm_hdl_path_concat)"
    class \uvm_pkg::uvm_queue#(T=uvm_pkg::uvm_hdl_path_concat) extends \uvm_pkg::uvm_object ;
        \uvm_pkg::uvm_queue::this_type_473 m_global_queue; // flagged
        \uvm_pkg::uvm_queue::T_478 queue [$];
    endclass
    typedef class \uvm_pkg::uvm_queue#(T=uvm_pkg::uvm_callback) ;
    // type 662: typedef "uvm_pkg::uvm_queue::this_type"
    typedef \uvm_pkg::uvm_queue#(T=uvm_pkg::uvm_callback) \uvm_pkg::uvm_queue::this_type_662 ;
    typedef class \uvm_pkg::uvm_callback ;
    // type 663: typedef "uvm_pkg::uvm_queue::T"
    typedef \uvm_pkg::uvm_callback \uvm_pkg::uvm_queue::T_663 ;
    // type 664: queue ""
    typedef \uvm_pkg::uvm_queue::T_663 type_664 [$];
    // type 661: class "uvm_pkg::uvm_queue#(T=uvm_pkg::uvm_callback)"
    class \uvm_pkg::uvm_queue#(T=uvm_pkg::uvm_callback) extends \uvm_pkg::uvm_object ;
        \uvm_pkg::uvm_queue::this_type_662 m_global_queue; // flagged
        \uvm_pkg::uvm_queue::T_663 queue [$];
    endclass
    typedef class \uvm_pkg::uvm_queue#(T=uvm_pkg::m_uvm_waiter) ;
    // type 680: typedef "uvm_pkg::uvm_queue::this_type"
    typedef \uvm_pkg::uvm_queue#(T=uvm_pkg::m_uvm_waiter) \uvm_pkg::uvm_queue::this_type_680 ;
    typedef class \uvm_pkg::m_uvm_waiter ;
    // type 682: typedef "uvm_pkg::uvm_queue::T"
    typedef \uvm_pkg::m_uvm_waiter \uvm_pkg::uvm_queue::T_682 ;
    // type 683: queue ""
    typedef \uvm_pkg::uvm_queue::T_682 type_683 [$];
    // type 679: class "uvm_pkg::uvm_queue#(T=uvm_pkg::m_uvm_waiter)"
    class \uvm_pkg::uvm_queue#(T=uvm_pkg::m_uvm_waiter) extends \uvm_pkg::uvm_object ;
        \uvm_pkg::uvm_queue::this_type_680 m_global_queue; // flagged
        \uvm_pkg::uvm_queue::T_682 queue [$];
    endclass
    typedef class \uvm_pkg::uvm_queue#(T=struct{string\x20name;string\x20regex;}uvm_pkg::s$1) ;
    // type 870: typedef "uvm_pkg::uvm_queue::this_type"
    typedef \uvm_pkg::uvm_queue#(T=struct{string\x20name;string\x20regex;}uvm_pkg::s$1) \uvm_pkg::uvm_queue::this_type_870 ;
    // type 57: unpacked struct "uvm_pkg::uvm_acs_name_struct"
    typedef struct {
        string name;
        string regex;
    } \uvm_pkg::uvm_acs_name_struct ;
    // type 58: typedef "uvm_pkg::uvm_acs_name_struct": declared as type 57
    // type 871: typedef "uvm_pkg::uvm_queue::T"
    typedef \uvm_pkg::uvm_acs_name_struct \uvm_pkg::uvm_queue::T_871 ;
    // type 872: queue ""
    typedef \uvm_pkg::uvm_queue::T_871 type_872 [$];
    // type 869: class "uvm_pkg::uvm_queue#(T=struct{string name;string regex;}uvm_pkg::s$1)"
    class \uvm_pkg::uvm_queue#(T=struct{string\x20name;string\x20regex;}uvm_pkg::s$1) extends \uvm_pkg::uvm_object ;
        \uvm_pkg::uvm_queue::this_type_870 m_global_queue; // flagged
        \uvm_pkg::uvm_queue::T_871 queue [$];
    endclass
    typedef class \uvm_pkg::uvm_queue#(T=uvm_pkg::uvm_resource_base) ;
    // type 1291: typedef "uvm_pkg::uvm_queue::this_type"
    typedef \uvm_pkg::uvm_queue#(T=uvm_pkg::uvm_resource_base) \uvm_pkg::uvm_queue::this_type_1291 ;
    typedef class \uvm_pkg::uvm_resource_base ;
    // type 1292: typedef "uvm_pkg::uvm_queue::T"
    typedef \uvm_pkg::uvm_resource_base \uvm_pkg::uvm_queue::T_1292 ;
    // type 1293: queue ""
    typedef \uvm_pkg::uvm_queue::T_1292 type_1293 [$];
    // type 1290: class "uvm_pkg::uvm_queue#(T=uvm_pkg::uvm_resource_base)"
    class \uvm_pkg::uvm_queue#(T=uvm_pkg::uvm_resource_base) extends \uvm_pkg::uvm_object ;
        \uvm_pkg::uvm_queue::this_type_1291 m_global_queue; // flagged
        \uvm_pkg::uvm_queue::T_1292 queue [$];
    endclass
    typedef class \uvm_pkg::uvm_object_registry#(T=uvm_pkg::uvm_queue#(T=uvm_pkg::uvm_callback),Tname="<unknown>") ;
    // type 1976: typedef "uvm_pkg::uvm_queue::type_id"
    typedef \uvm_pkg::uvm_object_registry#(T=uvm_pkg::uvm_queue#(T=uvm_pkg::uvm_callback),Tname="<unknown>") \uvm_pkg::uvm_queue::type_id ;
    typedef class \uvm_pkg::uvm_object_registry#(T=uvm_pkg::uvm_queue#(T=uvm_pkg::uvm_hdl_path_concat),Tname="<unknown>") ;
    // type 1977: typedef "uvm_pkg::uvm_queue::type_id"
    typedef \uvm_pkg::uvm_object_registry#(T=uvm_pkg::uvm_queue#(T=uvm_pkg::uvm_hdl_path_concat),Tname="<unknown>") \uvm_pkg::uvm_queue::type_id_1977 ;
    typedef class \uvm_pkg::uvm_object_registry#(T=uvm_pkg::uvm_queue#(T=uvm_pkg::m_uvm_waiter),Tname="<unknown>") ;
    // type 1978: typedef "uvm_pkg::uvm_queue::type_id"
    typedef \uvm_pkg::uvm_object_registry#(T=uvm_pkg::uvm_queue#(T=uvm_pkg::m_uvm_waiter),Tname="<unknown>") \uvm_pkg::uvm_queue::type_id_1978 ;
    typedef class \uvm_pkg::uvm_object_registry#(T=uvm_pkg::uvm_queue#(T=uvm_pkg::uvm_resource_base),Tname="<unknown>") ;
    // type 1979: typedef "uvm_pkg::uvm_queue::type_id"
    typedef \uvm_pkg::uvm_object_registry#(T=uvm_pkg::uvm_queue#(T=uvm_pkg::uvm_resource_base),Tname="<unknown>") \uvm_pkg::uvm_queue::type_id_1979 ;
    typedef class \uvm_pkg::uvm_object_registry#(T=uvm_pkg::uvm_queue#(T=struct{string\x20name;string\x20regex;}uvm_pkg::s$1),Tname="<unknown>") ;
    // type 1980: typedef "uvm_pkg::uvm_queue::type_id"
    typedef \uvm_pkg::uvm_object_registry#(T=uvm_pkg::uvm_queue#(T=struct{string\x20name;string\x20regex;}uvm_pkg::s$1),Tname="<unknown>") \uvm_pkg::uvm_queue::type_id_1980 ;
    typedef class \uvm_pkg::uvm_object_registry#(T=uvm_pkg::uvm_queue#(T=string),Tname="<unknown>") ;
    // type 1981: typedef "uvm_pkg::uvm_queue::type_id"
    typedef \uvm_pkg::uvm_object_registry#(T=uvm_pkg::uvm_queue#(T=string),Tname="<unknown>") \uvm_pkg::uvm_queue::type_id_1981 ;
    // type 475: unpacked struct "uvm_pkg::uvm_hdl_path_slice"
    typedef struct {
        string path;
        int offset;
        int size;
    } \uvm_pkg::uvm_hdl_path_slice ;
    // type 476: typedef "uvm_pkg::uvm_hdl_path_slice": declared as type 475
    // type 477: dynamic array ""
    typedef \uvm_pkg::uvm_hdl_path_slice type_477 [];
    // type 474: class "uvm_pkg::uvm_hdl_path_concat"
    class \uvm_pkg::uvm_hdl_path_concat extends \uvm_pkg::uvm_void ;
        \uvm_pkg::uvm_hdl_path_slice slices [];
    endclass
    // type 580: class "uvm_pkg::uvm_callback"
    class \uvm_pkg::uvm_callback extends \uvm_pkg::uvm_object ;
        bit m_enabled;
    endclass
    // type 167: event "event": predefined
    // type 681: class "uvm_pkg::m_uvm_waiter"
    class \uvm_pkg::m_uvm_waiter ;
        string inst_name;
        string field_name;
        event trigger;
    endclass
    // type 92: packed array "int": predefined
    typedef class \uvm_pkg::uvm_resource_debug ;
    // type 103: class "uvm_pkg::uvm_resource_base"
    class \uvm_pkg::uvm_resource_base extends \uvm_pkg::uvm_object ;
        bit modified;
        bit read_only;
        \uvm_pkg::uvm_resource_debug dbg;
        string scope;
        int precedence;
        int default_precedence; // flagged
    endclass
    // type 60: class "uvm_pkg::uvm_object_wrapper"
    class \uvm_pkg::uvm_object_wrapper extends \uvm_pkg::uvm_void ;
    endclass
    // type 657: class "uvm_pkg::uvm_object_registry#(T=uvm_pkg::uvm_queue#(T=uvm_pkg::uvm_callback),Tname=\"<unknown>\")"
    class \uvm_pkg::uvm_object_registry#(T=uvm_pkg::uvm_queue#(T=uvm_pkg::uvm_callback),Tname="<unknown>") extends \uvm_pkg::uvm_object_wrapper ;
    endclass
    // type 1205: class "uvm_pkg::uvm_object_registry#(T=uvm_pkg::uvm_queue#(T=uvm_pkg::uvm_hdl_path_concat),Tname=\"<unknown>\")"
    class \uvm_pkg::uvm_object_registry#(T=uvm_pkg::uvm_queue#(T=uvm_pkg::uvm_hdl_path_concat),Tname="<unknown>") extends \uvm_pkg::uvm_object_wrapper ;
    endclass
    // type 1081: class "uvm_pkg::uvm_object_registry#(T=uvm_pkg::uvm_queue#(T=uvm_pkg::m_uvm_waiter),Tname=\"<unknown>\")"
    class \uvm_pkg::uvm_object_registry#(T=uvm_pkg::uvm_queue#(T=uvm_pkg::m_uvm_waiter),Tname="<unknown>") extends \uvm_pkg::uvm_object_wrapper ;
    endclass
    // type 1286: class "uvm_pkg::uvm_object_registry#(T=uvm_pkg::uvm_queue#(T=uvm_pkg::uvm_resource_base),Tname=\"<unknown>\")"
    class \uvm_pkg::uvm_object_registry#(T=uvm_pkg::uvm_queue#(T=uvm_pkg::uvm_resource_base),Tname="<unknown>") extends \uvm_pkg::uvm_object_wrapper ;
    endclass
    // type 865: class "uvm_pkg::uvm_object_registry#(T=uvm_pkg::uvm_queue#(T=struct{string name;string regex;}uvm_pkg::s$1),Tname=\"<unknown>\")"
    class \uvm_pkg::uvm_object_registry#(T=uvm_pkg::uvm_queue#(T=struct{string\x20name;string\x20regex;}uvm_pkg::s$1),Tname="<unknown>") extends \uvm_pkg::uvm_object_wrapper ;
    endclass
    // type 1076: class "uvm_pkg::uvm_object_registry#(T=uvm_pkg::uvm_queue#(T=string),Tname=\"<unknown>\")"
    class \uvm_pkg::uvm_object_registry#(T=uvm_pkg::uvm_queue#(T=string),Tname="<unknown>") extends \uvm_pkg::uvm_object_wrapper ;
    endclass
    // type 5: packed array "time": predefined
    // type 105: unpacked struct "uvm_pkg::uvm_resource_types::access_t"
    typedef struct {
        time read_time;
        time write_time;
        int read_count;
        int write_count;
    } \uvm_pkg::uvm_resource_types::access_t ;
    // type 106: typedef "uvm_pkg::uvm_resource_types::access_t": declared as type 105
    // type 107: associative array ""
    typedef \uvm_pkg::uvm_resource_types::access_t type_107 [string];
    // type 104: class "uvm_pkg::uvm_resource_debug"
    class \uvm_pkg::uvm_resource_debug extends \uvm_pkg::uvm_object ;
        \uvm_pkg::uvm_resource_types::access_t access [string];
    endclass
endpackage
